#include "regexp/RegExpReplace.h"

#include "regexp/LineBreakEscape.h"
#include "regexp/ReplacementTemplate.h"
#include "text/ExplainedError.h"

namespace scrivanta {

namespace {

// Of a result, in characters. $` and $' can make more of a text than any machine holds.
constexpr std::size_t kLargestResult = std::size_t{1} << 30;

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

// Every line feed, with the carriage return before it if there is one, becomes CR LF.
std::u16string WithFullLineBreaks(std::u16string_view text) {
  std::u16string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const std::size_t lineFeed = text.find(u'\n');
    if (lineFeed == std::u16string_view::npos) {
      break;
    }
    std::u16string_view line = text.substr(0, lineFeed);
    if (line.ends_with(u'\r')) {
      line.remove_suffix(1);
    }
    result.append(line).append(u"\r\n");
    text.remove_prefix(lineFeed + 1);
  }
  return result.append(text);
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
  return changed ? WithFullLineBreaks(rewritten) : rewritten;
}

}  // namespace

std::u16string ReplaceInText(const RegExpEngine& engine, std::u16string_view text, std::u16string_view pattern,
                             std::u16string_view replacement, RegExpReplaceOptions options, Progress& progress) {
  if (pattern.empty() || pattern == replacement) {
    return std::u16string(text);
  }
  std::u16string whole(pattern);
  if (replacement.find(u"\\1") != std::u16string_view::npos && !LooksGrouped(pattern)) {
    whole = u"(" + whole + u")";
  }
  const auto regExp = engine.Compile(whole, {options.ignoreCase, options.multiLine});
  const ReplacementTemplate insertion(WithDollarReferences(replacement), regExp->groupCount());
  std::u16string result;
  result.reserve(text.size());
  std::size_t copied = 0;  // of the text
  regExp->Scan(
      text, 0,
      [&](const RegExpMatch& match) {
        result += text.substr(copied, match.start - copied);
        insertion.AppendTo(result, text, match);
        copied = match.end();
        if (result.size() > kLargestResult) {
          throw ExplainedError("the text would become too long by this replacement", u"替换后的文本太长，放弃替换。");
        }
        return options.global;
      },
      progress);
  result += text.substr(copied);
  return EndsWithLineBreakEscape(pattern) ? result : WithFullLineBreaks(result);
}

}  // namespace scrivanta
