// The groups and control words of a rich text (Rich Text Format 1.9), found without reading what they mean.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace scrivanta {

// Behind the brace that closes the first group; nothing when that is not closed.
std::optional<std::size_t> EndOfGroup(std::string_view rtf);

// What a group is for: the control word that it begins with, behind \\* where that marks one that readers may pass
// over.
struct RtfDestination {
  std::string_view name;  // empty when the group begins with something else
  bool isMarked = false;
  std::size_t behind = 0;  // the word, in bytes from the beginning of the rich text
};
RtfDestination DestinationOf(std::string_view rtf, std::size_t brace);

// Whether the bytes are one group and no more: not so when whoever wrote them has stopped in their midst.
bool IsWholeRtf(std::string_view rtf);

// Every line break within a paragraph is made the end of one: what begins a line on the screen then begins one in the
// text of an edit control, too.
std::string WithParagraphEnds(std::string_view rtf);

}  // namespace scrivanta
