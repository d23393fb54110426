#include "text/PathParts.h"

#include <algorithm>

namespace scrivanta {

namespace {

// Where what follows the last of the separators begins; 0 when there is none.
std::size_t BeginAfterLast(std::u16string_view text, std::u16string_view separators) {
  return text.find_last_of(separators) + 1;  // npos + 1 is 0
}

}  // namespace

std::u16string_view FileNamePart(std::u16string_view line) {
  return line.substr(BeginAfterLast(line, u"\\"));
}

std::u16string_view FileNameOf(std::u16string_view path) {
  return path.substr(BeginAfterLast(path, u"\\/"));
}

std::u16string_view FolderOf(std::u16string_view path) {
  return path.substr(0, BeginAfterLast(path, u"\\/"));
}

std::u16string_view ExtensionOf(std::u16string_view path) {
  const std::u16string_view name = FileNameOf(path);
  const std::size_t dot = name.rfind(u'.');
  return dot == std::u16string_view::npos || dot + 1 == name.size() ? std::u16string_view() : name.substr(dot);
}

bool IsRichTextPath(std::u16string_view path) {
  constexpr std::u16string_view kRichText = u".rtf";
  return path.size() >= kRichText.size() &&
         std::equal(
             kRichText.begin(), kRichText.end(), path.end() - kRichText.size(),
             [](char16_t want, char16_t have) { return have == want || (want != u'.' && have == want - u'a' + u'A'); });
}

std::u16string WithTextExtension(std::u16string_view path) {
  std::u16string result(path);
  if (ExtensionOf(path).empty()) {
    result += u".Txt";
  }
  return result;
}

}  // namespace scrivanta
