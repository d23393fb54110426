#include "database/JetDriver.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "text/PlatformFile.h"
#include "text/UpperCase.h"

namespace scrivanta {

namespace {

struct KnownDriver {
  std::u16string_view name;
  bool readsNewFiles;  // .accdb
};

// The best first. The last reads only, and is what other systems have.
constexpr std::array kKnownDrivers = {
    KnownDriver{u"Microsoft Access Driver (*.mdb, *.accdb)", true},
    KnownDriver{u"Microsoft Access Driver (*.mdb)", false},
    KnownDriver{u"MDBTools", true},
};

bool HasEnding(const std::filesystem::path& file, std::u16string_view upperCase) {
  return UpperCase(TextOfPath(file.extension())) == upperCase;
}

// A value of a connection string, in braces, so that no sign in it means anything.
std::u16string Braced(std::u16string_view value) {
  std::u16string braced = u"{";
  for (const char16_t unit : value) {
    braced += unit;
    if (unit == u'}') {
      braced += unit;
    }
  }
  return braced + u"}";
}

}  // namespace

bool IsJetFile(const std::filesystem::path& file) {
  return HasEnding(file, u".MDB") || HasEnding(file, u".ACCDB");
}

std::optional<std::u16string> ChooseJetDriver(const std::vector<std::u16string>& drivers,
                                              const std::filesystem::path& file) {
  const bool isNew = HasEnding(file, u".ACCDB");
  for (const KnownDriver& known : kKnownDrivers) {
    const bool isThere = std::ranges::find(drivers, known.name) != drivers.end();
    if (isThere && (known.readsNewFiles || !isNew)) {
      return std::u16string(known.name);
    }
  }
  return std::nullopt;
}

std::u16string JetConnectionString(std::u16string_view driver, const std::filesystem::path& file,
                                   std::u16string_view password) {
  // The driver of other systems does not know braces around a file's name.
  std::u16string text = u"DRIVER=" + Braced(driver) + u";DBQ=" + TextOfPath(file);
  if (!password.empty()) {
    text += u";PWD=" + Braced(password);
  }
  return text;
}

}  // namespace scrivanta
