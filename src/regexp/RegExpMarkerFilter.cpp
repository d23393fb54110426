#include "regexp/RegExpMarkerFilter.h"

#include "regexp/Markers.h"
#include "regexp/RegExpExtract.h"
#include "regexp/RegExpReplace.h"
#include "text/LineText.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kLineBreak = u"\r\n";

// The pieces between the markers, joined. A piece that begins with the end of an emptied line loses it.
std::u16string JoinPieces(std::u16string_view marked) {
  std::u16string joined;
  joined.reserve(marked.size());
  for (bool first = true;; first = false) {
    const std::size_t end = marked.find(kSplitMarker);
    std::u16string_view piece = marked.substr(0, end);
    const bool atLineStart = joined.empty() || joined.ends_with(kLineBreak);
    if (!first && atLineStart && piece.starts_with(kLineBreak)) {
      piece.remove_prefix(kLineBreak.size());
    }
    joined += piece;
    if (end == std::u16string_view::npos) {
      return joined;
    }
    marked.remove_prefix(end + kSplitMarker.size());
  }
}

}  // namespace

std::u16string MarkerFilterText(const RegExpEngine& engine, std::u16string_view text, std::u16string_view patterns,
                                MarkerFilterMode mode, bool ignoreCase, Progress& progress) {
  if (mode == MarkerFilterMode::kRemove) {
    return JoinPieces(ReplaceInText(engine, text, patterns, kSplitMarker, {.ignoreCase = ignoreCase}, progress));
  }
  std::u16string result = JoinLines(ExtractFromText(engine, text, patterns, {.ignoreCase = ignoreCase}, progress));
  if (!result.empty()) {
    result += kLineBreak;
  }
  return result;
}

}  // namespace scrivanta
