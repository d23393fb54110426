#include "shell/history/LineBreakIndex.h"

#include <algorithm>
#include <ranges>

namespace scrivanta {

LineBreakIndex::LineBreakIndex(std::u16string_view documentText) {
  std::size_t found = documentText.find(u"\r\n");
  while (found != std::u16string_view::npos) {
    before_.push_back(found - before_.size());
    found = documentText.find(u"\r\n", found + 2);
  }
  length_ = documentText.size() - before_.size();
}

void LineBreakIndex::Replace(ControlRange removed, std::u16string_view insertedControlText) {
  const std::size_t start = std::min(removed.start.value, length_);
  const std::size_t removedLength = std::min(removed.length, length_ - start);
  MoveGap(start);
  const std::size_t behind = length_ - start - removedLength;
  while (!after_.empty() && after_.back() > behind) {
    after_.pop_back();
  }
  for (std::size_t i = 0; i < insertedControlText.size(); ++i) {
    if (insertedControlText[i] == u'\r') {
      before_.push_back(start + i);
    }
  }
  length_ = start + insertedControlText.size() + behind;
}

// Afterwards before_ holds exactly the breaks before the position.
void LineBreakIndex::MoveGap(std::size_t position) {
  while (!before_.empty() && before_.back() >= position) {
    after_.push_back(length_ - before_.back());
    before_.pop_back();
  }
  while (!after_.empty() && length_ - after_.back() < position) {
    before_.push_back(length_ - after_.back());
    after_.pop_back();
  }
}

std::size_t LineBreakIndex::BreakAt(std::size_t index) const {
  return index < before_.size() ? before_[index] : length_ - after_[after_.size() - 1 - (index - before_.size())];
}

ControlPos LineBreakIndex::ToControl(TextPos position) const {
  const std::size_t text = std::min(position.value, textLength());
  const auto indices = std::views::iota(std::size_t{0}, breakCount());
  const std::size_t passed =
      *std::ranges::partition_point(indices, [&](std::size_t i) { return BreakAt(i) + i + 2 <= text; });
  const std::size_t control = text - passed;
  return {passed < breakCount() ? std::min(control, BreakAt(passed)) : control};
}

TextPos LineBreakIndex::ToText(ControlPos position) const {
  const std::size_t control = std::min(position.value, length_);
  return {control + LineOf(ControlPos{control})};
}

ControlRange LineBreakIndex::ToControl(TextRange range) const {
  const ControlPos start = ToControl(range.start);
  const std::size_t rest = textLength() - std::min(range.start.value, textLength());
  const TextPos end = {textLength() - rest + std::min(range.length, rest)};
  ControlPos controlEnd = ToControl(end);
  if (!range.empty() && ToText(controlEnd) < end) {
    ++controlEnd.value;
  }
  return {start, controlEnd.value - start.value};
}

TextRange LineBreakIndex::ToText(ControlRange range) const {
  const TextPos start = ToText(range.start);
  const std::size_t rest = length_ - std::min(range.start.value, length_);
  const TextPos end = ToText(ControlPos{length_ - rest + std::min(range.length, rest)});
  return {start, end.value - start.value};
}

std::size_t LineBreakIndex::LineOf(ControlPos position) const {
  const auto indices = std::views::iota(std::size_t{0}, breakCount());
  return *std::ranges::partition_point(indices, [&](std::size_t i) { return BreakAt(i) < position.value; });
}

ControlPos LineBreakIndex::LineStart(std::size_t line) const {
  const std::size_t known = std::min(line, breakCount());
  return {known == 0 ? 0 : BreakAt(known - 1) + 1};
}

}  // namespace scrivanta
