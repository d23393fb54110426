#include "regexp/RegExp.h"

namespace scrivanta {

namespace {

bool IsWithinLineBreak(std::u16string_view text, std::size_t place) {
  return place > 0 && place < text.size() && text[place - 1] == u'\r' && text[place] == u'\n';
}

}  // namespace

void RegExp::Scan(std::u16string_view text, std::size_t from, const RegExpVisitor& visit, Progress& progress) {
  ScanAll(
      text, from,
      [&](const RegExpMatch& match) {
        return (match.value.empty() && IsWithinLineBreak(text, match.start)) || visit(match);
      },
      progress);
}

bool RegExp::Matches(std::u16string_view text, Progress& progress) {
  bool found = false;
  Scan(
      text, 0,
      [&found](const RegExpMatch&) {
        found = true;
        return false;
      },
      progress);
  return found;
}

}  // namespace scrivanta
