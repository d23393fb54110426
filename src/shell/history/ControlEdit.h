// One edit of the text in the edit control, and the control as those see it who follow its edits.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "rtf/FormattedText.h"
#include "shell/history/ControlPos.h"
#include "text/Interface.h"

namespace scrivanta {

// The texts are as the control has them: one CR a line break.
struct ControlEdit {
  ControlPos start;
  std::u16string removed;
  std::u16string inserted;
  // Of the texts, when they are known and have formats of their own. Both without texts: what follows the start has
  // changed its formats and nothing else.
  SharedFormats removedFormats = {};
  SharedFormats insertedFormats = {};

  ControlRange removedRange() const noexcept { return {start, removed.size()}; }
  ControlRange insertedRange() const noexcept { return {start, inserted.size()}; }
  bool IsFormatting() const noexcept {
    return removed.empty() && inserted.empty() && removedFormats && insertedFormats;
  }
  bool empty() const noexcept { return removed.empty() && inserted.empty() && !IsFormatting(); }
};

ControlEdit Reversed(const ControlEdit& edit);
// Without what the removed and the inserted text have in common at their ends. Their formats must not be known yet.
ControlEdit Trimmed(ControlEdit edit);
// The memory that these take, in bytes.
std::size_t CostOf(const SharedFormats& formats);
std::size_t CostOf(const ControlEdit& edit);

// What the edits, each made in the text that those before it have left, remove or format, as places of the text before
// all of them; nothing when they go to and fro.
std::optional<std::vector<ControlRange>> PlacesBeforeAll(std::span<const ControlEdit> edits);

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
