#include "regexp/RegExpReplacer.h"

#include <utility>

#include "text/LineText.h"

namespace scrivanta {

namespace {

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

}  // namespace scrivanta
