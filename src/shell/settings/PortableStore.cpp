#include "shell/settings/PortableStore.h"

#include "text/Bytes.h"

namespace scrivanta {
namespace {

constexpr std::u16string_view kSection = u"Portable";

std::u16string SectionOf(std::u16string_view section) {
  return std::u16string(kSection) + u"." + std::u16string(section);
}

}  // namespace

bool IsPortable(const IniFile& iniFile) {
  try {
    return iniFile.Read(kSection, u"SettingsHere") == u"1";
  } catch (const FileError&) {
    return false;
  }
}

std::optional<std::u16string> PortableStore::Read(std::u16string_view section, std::u16string_view key) const {
  return iniFile_.Read(SectionOf(section), key);
}

void PortableStore::Write(std::u16string_view section, std::u16string_view key, std::u16string_view value) {
  iniFile_.Write(SectionOf(section), key, value);
}

SettingEntries PortableStore::ReadAll(std::u16string_view section) const {
  return iniFile_.ReadAll(SectionOf(section));
}

void PortableStore::WriteAll(std::u16string_view section, const SettingEntries& entries) {
  iniFile_.WriteAll(SectionOf(section), entries);
}

}  // namespace scrivanta
