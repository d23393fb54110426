#include "shell/DocumentHistory.h"

#include <algorithm>
#include <ranges>
#include <utility>

#include "shell/EditTracker.h"
#include "shell/LineDifference.h"

namespace scrivanta {
namespace {

// Up to here a rebuild of plain text is undone edit by edit, which the control does faster than loading a large text.
constexpr std::size_t kMostUnits = 20'000;
constexpr std::size_t kMostEdits = 200;

bool IsSmall(const UndoPart& part) {
  std::size_t units = 0;
  for (const ControlEdit& edit : part.edits) {
    units += edit.removed.size() + edit.inserted.size();
  }
  return units <= kMostUnits && part.edits.size() <= kMostEdits;
}

UndoElement Entry(const ShadowText& text, ControlRange selection) {
  UndoElement element{text.Text(), static_cast<std::int32_t>(text.breaks().ToText(selection.end()).value), 0};
  element.TextLen = static_cast<std::int32_t>(element.Text.size());
  return element;
}

}  // namespace

void DocumentHistory::Reset(const ControlView& control) {
  text_ = ShadowText();
  text_.Replace({}, control.Read({{0}, control.Length()}));
  selection_ = control.Selection();
  history_.Clear(selection_);
}

void DocumentHistory::NoteSelection(const ControlView& control) {
  if (control.Length() != text_.length()) {
    return;
  }
  const ControlRange selection = control.Selection();
  if (selection != selection_) {
    history_.Seal();
    selection_ = selection;
  }
}

bool DocumentHistory::NoteChange(const ControlView& control, Time now) {
  ControlEdit edit = FindEdit(text_, selection_, control);
  const ControlRange before = std::exchange(selection_, control.Selection());
  if (edit.empty()) {
    return false;
  }
  TakeUp(edit);
  history_.Record(std::move(edit), before, selection_, now);
  return true;
}

void DocumentHistory::NoteRebuild(const ControlView& control, RichText before) {
  UndoPart part;
  part.before = std::move(before);
  ControlEdit edit = FindEditByWholeText(text_, control);
  if (!edit.empty()) {
    TakeUp(edit);
    part.edits = SplitByLines(std::move(edit));
  }
  const ControlRange selectionBefore = std::exchange(selection_, control.Selection());
  history_.RecordRebuild(std::move(part), selectionBefore, selection_);
}

void DocumentHistory::BeginCommand(const ControlView& control) {
  NoteSelection(control);
  history_.BeginCommand(selection_);
}

void DocumentHistory::EndCommand(const ControlView& control) {
  NoteSelection(control);
  history_.EndCommand(selection_);
}

bool DocumentHistory::Undo(UndoTarget& target) {
  if (!canUndo()) {
    return false;
  }
  const std::vector<ControlEdit>& edits = history_.done().back().parts.back().edits;
  CatchUp(target, edits.empty() ? ControlRange{} : edits.back().insertedRange());
  const UndoStep& step = history_.done().back();
  for (std::size_t part = step.parts.size(); part-- > 0;) {
    if (step.parts[part].rebuilds) {
      history_.KeepAfter(part, target.Capture());
    }
    Replay(target, step.parts[part], Direction::kBack);
  }
  target.Select(step.selectionBefore);
  selection_ = target.Selection();
  history_.MoveToUndone();
  return true;
}

bool DocumentHistory::Redo(UndoTarget& target) {
  if (!canRedo()) {
    return false;
  }
  const std::vector<ControlEdit>& edits = history_.undone().back().parts.front().edits;
  CatchUp(target, edits.empty() ? ControlRange{} : edits.front().removedRange());
  if (!canRedo()) {  // what was caught up on is a new change
    return false;
  }
  const UndoStep& step = history_.undone().back();
  for (std::size_t part = 0; part < step.parts.size(); ++part) {
    if (step.parts[part].rebuilds) {
      history_.KeepBefore(part, target.Capture());
    }
    Replay(target, step.parts[part], Direction::kForth);
  }
  target.Select(step.selectionAfter);
  selection_ = target.Selection();
  history_.MoveToDone();
  return true;
}

// A change that nobody has told of becomes a step of its own.
void DocumentHistory::CatchUp(const ControlView& control, ControlRange place) {
  history_.Seal();
  if (!LooksTheSame(text_, control, place)) {
    ControlEdit edit = FindEditByWholeText(text_, control);
    if (!edit.empty()) {
      TakeUp(edit);
      const ControlRange selectionBefore = std::exchange(selection_, control.Selection());
      history_.Record(std::move(edit), selectionBefore, selection_, {});
      history_.Seal();
    }
  }
}

void DocumentHistory::Replay(UndoTarget& target, const UndoPart& part, Direction direction) {
  const bool rebuild = part.rebuilds && (part.before || part.after || !IsSmall(part));
  const auto apply = [&](const ControlEdit& edit) {
    if (!rebuild) {
      target.Replace(edit);
    }
    TakeUp(edit);
  };
  if (direction == Direction::kForth) {
    std::ranges::for_each(part.edits, apply);
  } else {
    for (const ControlEdit& edit : std::views::reverse(part.edits)) {
      apply(Reversed(edit));
    }
  }
  if (rebuild) {
    Rebuild(target, direction == Direction::kForth ? part.after : part.before);
  }
}

// Rich text can come back with a line break more at its end than it went out with.
void DocumentHistory::Rebuild(UndoTarget& target, const RichText& richText) {
  target.Rebuild(richText, text_.Text());
  const ControlEdit wrong = FindEditByWholeText(text_, target);
  if (!wrong.empty()) {
    target.Replace(Reversed(wrong));
  }
}

UndoElement DocumentHistory::UndoEntry(std::size_t index) const {
  ShadowText text = text_;
  for (const UndoStep& step : history_.done() | std::views::drop(index) | std::views::reverse) {
    for (const UndoPart& part : step.parts | std::views::reverse) {
      for (const ControlEdit& edit : part.edits | std::views::reverse) {
        text.Replace(edit.insertedRange(), edit.removed);
      }
    }
  }
  return Entry(text, index == 0 ? history_.startSelection() : history_.done()[index - 1].selectionAfter);
}

UndoElement DocumentHistory::RedoEntry(std::size_t index) const {
  ShadowText text = text_;
  for (const UndoStep& step : history_.undone() | std::views::drop(index) | std::views::reverse) {
    for (const UndoPart& part : step.parts) {
      for (const ControlEdit& edit : part.edits) {
        text.Replace(edit.removedRange(), edit.inserted);
      }
    }
  }
  return Entry(text, history_.undone()[index].selectionAfter);
}

}  // namespace scrivanta
