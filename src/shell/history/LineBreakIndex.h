// Where the line breaks of a text are, so that a position is converted between the document text (a break is CR LF) and
// the edit control (a break is one unit) by a binary search. Built once from the text, it follows each edit at the cost
// of the breaks between this edit and the one before.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "shell/history/ControlPos.h"
#include "text/TextPos.h"

namespace scrivanta {

class LineBreakIndex {
 public:
  LineBreakIndex() = default;
  // A break is a CR LF; a lone CR or LF is a character like any other.
  explicit LineBreakIndex(std::u16string_view documentText);

  // Follows an edit. In the inserted text, as the control has it, each CR is a break. Positions beyond the end mean the
  // end.
  void Replace(ControlRange removed, std::u16string_view insertedControlText);

  // Positions beyond the end mean the end; one between the CR and the LF of a break stands before the break.
  ControlPos ToControl(TextPos position) const;
  TextPos ToText(ControlPos position) const;
  // A range that holds a part of a break comes out with the whole break, an empty one empty.
  ControlRange ToControl(TextRange range) const;
  TextRange ToText(ControlRange range) const;

  // Lines count from 0.
  std::size_t LineOf(ControlPos position) const;
  std::size_t LineOf(TextPos position) const { return LineOf(ToControl(position)); }
  // A line beyond the last means the last.
  ControlPos LineStart(std::size_t line) const;

  std::size_t lineCount() const noexcept { return breakCount() + 1; }
  std::size_t controlLength() const noexcept { return length_; }
  std::size_t textLength() const noexcept { return length_ + breakCount(); }

 private:
  std::size_t breakCount() const noexcept { return before_.size() + after_.size(); }
  std::size_t BreakAt(std::size_t index) const;
  void MoveGap(std::size_t position);

  // Control positions of the breaks before the place of the last edit, from the start of the text; and of those behind
  // it, last one first, as distances from the end of the text: an edit leaves both as they are.
  std::vector<std::size_t> before_;
  std::vector<std::size_t> after_;
  std::size_t length_ = 0;
};

}  // namespace scrivanta
