// Replacement of the matches of a pattern.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "regexp/RegExp.h"
#include "regexp/RegExpReplacer.h"

namespace scrivanta {

struct RegExpReplaceOptions {
  bool ignoreCase = false;
  bool global = true;  // every match, not only the first
  bool multiLine = true;
  bool keepsLineFeeds = false;  // leaves lone line feeds as they are, whatever the pattern ends with
};

// $` and $' can make more of a text than any machine holds: throws ExplainedError for so many characters.
void CheckReplacedSize(std::size_t size);

// A replacement made ready for many texts, or for one in pieces.
class TextReplacer {
 public:
  // Throws RegExpSyntaxError.
  TextReplacer(const RegExpEngine& engine, std::u16string_view pattern, std::u16string_view replacement,
               RegExpReplaceOptions options);

  // Whether a text may be given in pieces that end behind a line feed.
  bool StaysInLine() const;
  // As ReplaceInText; one that replaces only the first match has done so once count() is 1.
  std::u16string Replace(std::u16string_view text, Progress& progress, bool isLastPiece = true);
  // How many matches were replaced in all.
  std::size_t count() const noexcept { return count_; }

 private:
  std::u16string ReplaceMatches(std::u16string_view text, Progress& progress, bool isLastPiece);

  RegExpReplaceOptions options_;
  std::optional<RegExpReplacer> replacer_;  // none: the text stays as it is
  std::size_t count_ = 0;
};

// The replacement refers to the match as with RegExpReplacer. Count receives how many matches were replaced. Unless the
// pattern ends with the four characters \r\n, every line feed of the result becomes a line break (CR LF). An empty
// pattern, or a replacement equal to it, leaves the text as it is. Throws RegExpSyntaxError, RegExpTooComplex,
// Interrupted.
std::u16string ReplaceInText(const RegExpEngine& engine, std::u16string_view text, std::u16string_view pattern,
                             std::u16string_view replacement, RegExpReplaceOptions options, Progress& progress,
                             std::size_t* count = nullptr);

}  // namespace scrivanta
