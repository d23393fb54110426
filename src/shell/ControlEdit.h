// One edit of the text in the edit control, and the control as those see it who follow its edits.
#pragma once

#include <cstddef>
#include <string>

#include "shell/ControlPos.h"

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

// What can be asked of the control without reading all of its text.
class ControlView {
 public:
  ControlView() = default;
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;
  virtual ~ControlView() = default;

  virtual std::size_t Length() const = 0;
  virtual ControlRange Selection() const = 0;
  // The units of the range with one CR a line break; its cost is that of the range.
  virtual std::u16string Read(ControlRange range) const = 0;
};

}  // namespace scrivanta
