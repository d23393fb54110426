// Shows places of the document in red and bold, by writing the whole text anew as rich text.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "rtf/RtfByLines.h"
#include "shell/workbench/Workbench.h"

namespace scrivanta {

enum class HighlightHeader {
  kSongTi,       // of HighlightInEditor: Chinese font; black, red, blue, orange
  kMsSansSerif,  // of mnufindall: black, red, green, blue
};

// The ranges are ascending and do not overlap.
RtfByLines HighlightedRtf(std::u16string_view text, std::span<const TextRange> ranges, HighlightHeader header,
                          Progress& progress);

// All places of the words, which are separated by "|", whatever their case; ascending, overlapping ones as one.
std::vector<TextRange> FindWords(std::u16string_view text, std::u16string_view words, Progress& progress);

// Highlights the words; asks for them when there are none, and says so where they do not occur. The rich text is also
// left in the temporary folder, as "HaveRtf.rtf". Selection and scroll position stay.
void HighlightInEditor(Workbench& workbench, std::u16string_view words);

// The same for places already found.
void HighlightRanges(Workbench& workbench, std::u16string_view text, std::span<const TextRange> ranges,
                     HighlightHeader header, Progress& progress);

}  // namespace scrivanta
