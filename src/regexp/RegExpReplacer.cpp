#include "regexp/RegExpReplacer.h"

#include <utility>

namespace scrivanta {

namespace {

bool IsDigit(char16_t c) {
  return c >= u'0' && c <= u'9';
}

// A ( with a ) somewhere behind it on the same line, escaped or not.
bool LooksGrouped(std::u16string_view pattern) {
  for (std::size_t open = pattern.find(u'('); open != std::u16string_view::npos; open = pattern.find(u'(', open + 1)) {
    const std::size_t stop = pattern.find_first_of(u")\n", open);
    if (stop != std::u16string_view::npos && pattern[stop] == u')') {
      return true;
    }
  }
  return false;
}

// One without a carriage return before it.
std::size_t FindLoneLineFeed(std::u16string_view text, std::size_t from) {
  std::size_t found = text.find(u'\n', from);
  while (found != std::u16string_view::npos && found > 0 && text[found - 1] == u'\r') {
    found = text.find(u'\n', found + 1);
  }
  return found;
}

// \1 and its like become $1; a replacement that has some also gets full line breaks, as every text replaced does.
std::u16string WithDollarReferences(std::u16string_view replacement) {
  std::u16string rewritten(replacement);
  bool changed = false;
  for (std::size_t i = 0; i + 1 < rewritten.size(); ++i) {
    if (rewritten[i] == u'\\' && IsDigit(rewritten[i + 1])) {
      rewritten[i] = u'$';
      changed = true;
    }
  }
  return changed ? WithFullLineBreaks(std::move(rewritten)) : rewritten;
}

std::u16string WithGroup(std::u16string_view pattern, std::u16string_view replacement) {
  std::u16string whole(pattern);
  if (replacement.find(u"\\1") != std::u16string_view::npos && !LooksGrouped(pattern)) {
    whole = u"(" + whole + u")";
  }
  return whole;
}

}  // namespace

RegExpReplacer::RegExpReplacer(const RegExpEngine& engine, std::u16string_view pattern, std::u16string_view replacement,
                               RegExpOptions options)
    : regExp_(engine.Compile(WithGroup(pattern, replacement), options)),
      template_(WithDollarReferences(replacement), regExp_->groupCount()) {}

std::u16string WithFullLineBreaks(std::u16string text) {
  std::size_t lineFeed = FindLoneLineFeed(text, 0);
  if (lineFeed == std::u16string::npos) {
    return text;
  }
  std::u16string result;
  result.reserve(text.size() + text.size() / 16);
  std::size_t copied = 0;  // of the text
  for (; lineFeed != std::u16string::npos; lineFeed = FindLoneLineFeed(text, copied)) {
    result.append(text, copied, lineFeed - copied).append(u"\r\n");
    copied = lineFeed + 1;
  }
  return result.append(text, copied);
}

}  // namespace scrivanta
