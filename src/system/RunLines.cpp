#include "system/RunLines.h"

#include <algorithm>
#include <system_error>

#include "text/PathParts.h"
#include "text/PlatformFile.h"
#include "text/UpperCase.h"

namespace scrivanta {

namespace {

std::u16string_view WithoutWrapping(std::u16string_view line) {
  static constexpr std::u16string_view kAround = u" \t\"\r\n\u3000";
  const auto strip = [](std::u16string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(kAround), text.size());
    text.remove_prefix(first);
    text.remove_suffix(text.size() - std::min(text.find_last_not_of(kAround) + 1, text.size()));
    return text;
  };
  line = strip(line);
  return line.starts_with(u"``") ? strip(line.substr(2)) : line;
}

// A scheme has two letters at least: one is a drive.
bool IsAddress(std::u16string_view text) {
  const auto isLetter = [](char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); };
  const std::size_t colon = text.find(u':');
  return colon != text.npos && colon > 1 && isLetter(text.front()) &&
         std::all_of(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(colon), [&isLetter](char16_t c) {
           return isLetter(c) || (c >= u'0' && c <= u'9') || c == u'+' || c == u'-' || c == u'.';
         });
}

bool RunsSomething(std::u16string_view name) {
  static constexpr std::u16string_view kExtensions[] = {
      u".EXE", u".COM", u".BAT", u".CMD", u".SCR", u".PIF", u".MSI", u".MSP", u".VBS", u".VBE", u".JS",  u".JSE",
      u".WSF", u".WSH", u".PS1", u".HTA", u".CPL", u".MSC", u".JAR", u".PY",  u".LNK", u".URL", u".REG", u".INF"};
  const std::u16string extension = UpperCase(ExtensionOf(name));
  return std::find(std::begin(kExtensions), std::end(kExtensions), extension) != std::end(kExtensions);
}

RunLine ReadLine(const std::u16string& text, const std::filesystem::path& folder) {
  RunLine line{.number = 0, .target = PathOfText(text), .kind = RunLineKind::kAddress};
  if (IsAddress(text)) {
    return line;
  }
  line.target = folder.empty() ? line.target : folder / line.target;
  std::error_code error;
  if (!std::filesystem::exists(line.target, error)) {
    line.kind = RunLineKind::kMissing;
  } else if (!std::filesystem::is_directory(line.target, error) && RunsSomething(text)) {
    line.kind = RunLineKind::kProgram;
  } else {
    line.kind = RunLineKind::kDocument;
  }
  return line;
}

}  // namespace

std::vector<RunLine> ReadRunLines(std::u16string_view text, const std::filesystem::path& folder,
                                  const VariableLookup& variable) {
  std::vector<RunLine> lines;
  for (std::size_t number = 1; !text.empty(); ++number) {
    const std::size_t end = std::min(text.find(u'\n'), text.size());
    const std::u16string name = WithVariables(WithoutWrapping(text.substr(0, end)), variable);
    if (!name.empty()) {
      lines.push_back(ReadLine(name, folder));
      lines.back().number = number;
    }
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

}  // namespace scrivanta
