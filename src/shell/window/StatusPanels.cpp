#include "shell/window/StatusPanels.h"

#include <algorithm>
#include <numeric>

#include "shell/window/FormatChoices.h"
#include "text/DecimalText.h"

namespace scrivanta {

namespace {

std::u16string PlaceText(const LineBreakIndex& breaks, ControlPos caret) {
  const std::size_t line = breaks.LineOf(caret);
  const std::size_t column = caret.value - breaks.LineStart(line).value;
  return u"行 " + DecimalText(line + 1) + u"，列 " + DecimalText(column + 1);
}

// Counted as the statistics count: a line break is two characters, and begins no line of its own at the end.
std::u16string SelectionText(const LineBreakIndex& breaks, ControlRange selection) {
  if (selection.empty()) {
    return {};
  }
  const ControlPos lastSelected{selection.end().value - 1};
  const std::size_t lines = breaks.LineOf(lastSelected) - breaks.LineOf(selection.start) + 1;
  return u"选中 " + DecimalText(breaks.ToText(selection).length) + u" 字，" + DecimalText(lines) + u" 行";
}

std::u16string StateText(const DocumentFile& document) {
  return document.IsChanged() ? u"已修改" : document.IsReadOnly() ? u"只读" : u"";
}

constexpr std::array kLeastWantedFirst = {StatusPanel::kSelection, StatusPanel::kLineEnds, StatusPanel::kEncoding,
                                          StatusPanel::kState, StatusPanel::kPlace};

}  // namespace

PerStatusPanel<std::u16string> StatusPanels::Describe(const LineBreakIndex& breaks, ControlRange selection,
                                                      const DocumentFile& document) {
  if (selection != selection_) {
    isCaretAtStart_ = selection.end() == selection_.end() && !selection.empty();
    selection_ = selection;
  }
  return {PlaceText(breaks, isCaretAtStart_ ? selection.start : selection.end()), SelectionText(breaks, selection),
          EncodingName(document), LineEndsName(document), StateText(document)};
}

std::vector<int> StatusPanelEdges(int barWidth, int gripWidth, const PerStatusPanel<int>& widths) {
  PerStatusPanel<int> shown = widths;
  for (const StatusPanel panel : kLeastWantedFirst) {
    if (std::accumulate(shown.begin(), shown.end(), gripWidth) > barWidth / 2) {
      shown[static_cast<std::size_t>(panel)] = 0;
    }
  }
  std::vector<int> edges;
  int edge = std::max(0, barWidth - std::accumulate(shown.begin(), shown.end(), gripWidth));
  for (const int width : shown) {
    edges.push_back(edge);
    edge += width;
  }
  edges.push_back(-1);
  return edges;
}

}  // namespace scrivanta
