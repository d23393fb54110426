// Replacement of the matches of a pattern.
#pragma once

#include <string>
#include <string_view>

#include "regexp/RegExp.h"
#include "regexp/SourceText.h"

namespace scrivanta {

struct RegExpReplaceOptions {
  bool ignoreCase = false;
  bool global = true;  // every match, not only the first
  bool multiLine = true;
  bool keepsLineFeeds = false;  // leaves lone line feeds as they are, whatever the pattern ends with
};

// The replacement refers to the match as with RegExpReplacer. Count receives how many matches were replaced. Unless the
// pattern ends with the four characters \r\n, every line feed of the result becomes a line break (CR LF). An empty
// pattern, or a replacement equal to it, leaves the text as it is. Throws RegExpSyntaxError, RegExpTooComplex,
// Interrupted.
std::u16string ReplaceInText(const RegExpEngine& engine, std::u16string_view text, std::u16string_view pattern,
                             std::u16string_view replacement, RegExpReplaceOptions options, Progress& progress,
                             std::size_t* count = nullptr);

// The same in a text, or in the file that it names; with kYes the result is written over the file. Throws FileError
// too.
std::u16string RegExpReplace(const RegExpEngine& engine, std::u16string_view source, std::u16string_view pattern,
                             std::u16string_view replacement, RegExpReplaceOptions options, WriteBack writeBack,
                             Progress& progress);

}  // namespace scrivanta
