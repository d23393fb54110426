#include "regexp/RegExpReplace.h"

#include <utility>

#include "regexp/LineBreakEscape.h"
#include "regexp/RegExpReplacer.h"
#include "text/ExplainedError.h"

namespace scrivanta {

namespace {

// Of a result, in characters. $` and $' can make more of a text than any machine holds.
constexpr std::size_t kLargestResult = std::size_t{1} << 30;

}  // namespace

std::u16string ReplaceInText(const RegExpEngine& engine, std::u16string_view text, std::u16string_view pattern,
                             std::u16string_view replacement, RegExpReplaceOptions options, Progress& progress,
                             std::size_t* count) {
  if (count != nullptr) {
    *count = 0;
  }
  if (pattern.empty() || pattern == replacement) {
    return std::u16string(text);
  }
  const RegExpReplacer replacer(engine, pattern, replacement, {options.ignoreCase, options.multiLine});
  std::u16string result;
  result.reserve(text.size());
  std::size_t copied = 0;  // of the text
  std::size_t replaced = 0;
  replacer.regExp().Scan(
      text, 0,
      [&](const RegExpMatch& match) {
        result += text.substr(copied, match.start - copied);
        replacer.AppendReplacement(result, text, match);
        copied = match.end();
        ++replaced;
        if (result.size() > kLargestResult) {
          throw ExplainedError("the text would become too long by this replacement", u"替换后的文本太长，放弃替换。");
        }
        return options.global;
      },
      progress);
  result += text.substr(copied);
  if (count != nullptr) {
    *count = replaced;
  }
  const bool keepsLineFeeds = options.keepsLineFeeds || EndsWithLineBreakEscape(pattern);
  return keepsLineFeeds ? result : WithFullLineBreaks(std::move(result));
}

std::u16string RegExpReplace(const RegExpEngine& engine, std::u16string_view source, std::u16string_view pattern,
                             std::u16string_view replacement, RegExpReplaceOptions options, WriteBack writeBack,
                             Progress& progress) {
  const SourceText input(source);
  options.keepsLineFeeds = options.keepsLineFeeds || input.keepsLineEnds();
  std::u16string result = ReplaceInText(engine, input.text(), pattern, replacement, options, progress);
  if (writeBack == WriteBack::kYes) {
    input.Write(result);
  }
  return result;
}

}  // namespace scrivanta
