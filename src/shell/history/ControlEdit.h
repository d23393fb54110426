// One edit of the text in the edit control, and the control as those see it who follow its edits.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "shell/history/ControlPos.h"
#include "text/Interface.h"

namespace scrivanta {

// The texts are as the control has them: one CR a line break.
struct ControlEdit {
  ControlPos start;
  std::u16string removed;
  std::u16string inserted;

  ControlRange removedRange() const noexcept { return {start, removed.size()}; }
  ControlRange insertedRange() const noexcept { return {start, inserted.size()}; }
  bool empty() const noexcept { return removed.empty() && inserted.empty(); }
};

ControlEdit Reversed(const ControlEdit& edit);
// Without what the removed and the inserted text have in common at their ends.
ControlEdit Trimmed(ControlEdit edit);
// The memory that an edit takes, in bytes.
std::size_t CostOf(const ControlEdit& edit);

// How much of a common beginning or end may be left out of an edit: the control cannot select half of a surrogate pair.
std::size_t WholePairsAtEnd(std::u16string_view commonBeginning);
std::size_t WholePairsAtStart(std::u16string_view commonEnd);

// What can be asked of the control without reading all of its text.
class ControlView : public Interface {
 public:
  virtual std::size_t Length() const = 0;
  virtual ControlRange Selection() const = 0;
  // The units of the range with one CR a line break; its cost is that of the range.
  virtual std::u16string Read(ControlRange range) const = 0;
};

}  // namespace scrivanta
