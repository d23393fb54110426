#include "regexp/RegExpReplace.h"

#include <utility>

#include "regexp/LineBreakEscape.h"
#include "regexp/RegExpReplacer.h"
#include "text/ExplainedError.h"
#include "text/LineText.h"

namespace scrivanta {

void CheckReplacedSize(std::size_t size) {
  constexpr std::size_t kLargest = std::size_t{1} << 30;
  if (size > kLargest) {
    throw ExplainedError("the text would become too long by this replacement", u"替换后的文本太长，放弃替换。");
  }
}

TextReplacer::TextReplacer(const RegExpEngine& engine, std::u16string_view pattern, std::u16string_view replacement,
                           RegExpReplaceOptions options)
    : options_(options) {
  if (!pattern.empty() && pattern != replacement) {
    replacer_.emplace(engine, pattern, replacement, RegExpOptions{options.ignoreCase, options.multiLine});
  }
  options_.keepsLineFeeds = options_.keepsLineFeeds || EndsWithLineBreakEscape(pattern);
}

bool TextReplacer::StaysInLine() const {
  return !replacer_ || replacer_->StaysInLine();
}

std::u16string TextReplacer::Replace(std::u16string_view text, Progress& progress, bool isLastPiece) {
  if (!replacer_) {
    return std::u16string(text);
  }
  const bool isDone = count_ > 0 && !options_.global;
  std::u16string result = isDone ? std::u16string(text) : ReplaceMatches(text, progress, isLastPiece);
  return options_.keepsLineFeeds ? result : WithFullLineBreaks(std::move(result));
}

std::u16string TextReplacer::ReplaceMatches(std::u16string_view text, Progress& progress, bool isLastPiece) {
  std::u16string result;
  result.reserve(text.size());
  std::size_t copied = 0;  // of the text
  replacer_->regExp().Scan(
      text, 0,
      [&](const RegExpMatch& match) {
        if (match.start == text.size() && !isLastPiece) {
          return false;
        }
        result += text.substr(copied, match.start - copied);
        replacer_->AppendReplacement(result, text, match);
        copied = match.end();
        ++count_;
        CheckReplacedSize(result.size());
        return options_.global;
      },
      progress);
  return result += text.substr(copied);
}

std::u16string ReplaceInText(const RegExpEngine& engine, std::u16string_view text, std::u16string_view pattern,
                             std::u16string_view replacement, RegExpReplaceOptions options, Progress& progress,
                             std::size_t* count) {
  TextReplacer replacer(engine, pattern, replacement, options);
  std::u16string result = replacer.Replace(text, progress);
  if (count != nullptr) {
    *count = replacer.count();
  }
  return result;
}

}  // namespace scrivanta
