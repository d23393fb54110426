// The panels of the status bar beside the path: what they say, in time that does not grow with the text, and how much
// room each gets.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "shell/document/DocumentFile.h"
#include "shell/history/LineBreakIndex.h"

namespace scrivanta {

// In the order of the bar.
enum class StatusPanel : std::size_t { kPlace, kSelection, kEncoding, kLineEnds, kState };
inline constexpr std::size_t kStatusPanelCount = 5;

template <typename T>
using PerStatusPanel = std::array<T, kStatusPanelCount>;

class StatusPanels {
 public:
  // The caret is the end of the selection that has moved since the last time; or its end.
  PerStatusPanel<std::u16string> Describe(const LineBreakIndex& breaks, ControlRange selection,
                                          const DocumentFile& document);

 private:
  ControlRange selection_;
  bool isCaretAtStart_ = false;
};

// The right edges of the path's panel and the others, in pixels; -1 is the end of the bar. What would leave the path
// less than half of the bar is left out, the least wanted first. The grip stands at the end of the bar.
std::vector<int> StatusPanelEdges(int barWidth, int gripWidth, const PerStatusPanel<int>& widths);

}  // namespace scrivanta
