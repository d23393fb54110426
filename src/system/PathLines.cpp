#include "system/PathLines.h"

#include <algorithm>

#include "text/PlatformFile.h"

namespace scrivanta {

std::u16string WithVariables(std::u16string_view text, const VariableLookup& variable) {
  std::u16string replaced;
  while (!text.empty()) {
    const std::size_t end = text.front() == u'%' ? text.find(u'%', 1) : text.npos;
    const auto value = end != text.npos && end > 1 ? variable(text.substr(1, end - 1)) : std::nullopt;
    replaced += value ? std::u16string_view(*value) : text.substr(0, 1);
    text.remove_prefix(value ? end + 1 : 1);
  }
  return replaced;
}

std::vector<std::filesystem::path> PathsOfLines(std::u16string_view text) {
  constexpr std::u16string_view kAround = u" \t\"";
  std::vector<std::filesystem::path> paths;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of(u"\r\n"), text.size());
    const std::u16string_view line = text.substr(0, end);
    const std::size_t first = line.find_first_not_of(kAround);
    if (first != line.npos) {
      paths.push_back(PathOfText(line.substr(first, line.find_last_not_of(kAround) + 1 - first)));
    }
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return paths;
}

}  // namespace scrivanta
