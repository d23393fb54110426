#include "shell/history/DocumentHistory.h"

#include <algorithm>
#include <ranges>
#include <utility>

#include "shell/history/EditTracker.h"
#include "shell/history/FollowEdit.h"
#include "shell/history/LineDifference.h"

namespace scrivanta {
namespace {

void Make(std::span<const ControlEdit> edits, TextMirror& text) {
  for (const ControlEdit& edit : edits) {
    text.Replace(edit.removedRange(), edit.inserted);
  }
}

// The edits that undo these.
std::vector<ControlEdit> Reversed(std::span<const ControlEdit> edits) {
  std::vector<ControlEdit> reversed;
  reversed.reserve(edits.size());
  for (const ControlEdit& edit : edits | std::views::reverse) {
    reversed.push_back(Reversed(edit));
  }
  return reversed;
}

UndoElement Entry(const TextMirror& text, ControlRange selection) {
  UndoElement element{text.Text(), static_cast<std::int32_t>(text.breaks().ToText(selection.end()).value), 0};
  element.TextLen = static_cast<std::int32_t>(element.Text.size());
  return element;
}

}  // namespace

void DocumentHistory::Reset(const ControlView& control) {
  text_ = TextMirror();
  text_.Replace({}, control.Read({{0}, control.Length()}));
  selection_ = control.Selection();
  known_.reset();
  marked_.reset();
  history_.Clear(selection_);
}

void DocumentHistory::NoteSelection(const ControlView& control) {
  if (control.Length() != text_.length()) {
    return;
  }
  const ControlRange selection = control.Selection();
  if (selection != selection_ && !MayBeErasing(selection)) {
    history_.Seal();
    selection_ = selection;
  }
}

// Some controls move the caret, by a character at most, before they erase.
bool DocumentHistory::MayBeErasing(ControlRange selection) const {
  const std::size_t from = std::min(selection.start.value, selection_.start.value);
  const std::size_t to = std::max(selection.start.value, selection_.start.value);
  return known_ && selection.empty() && selection_.empty() && to - from <= 2;
}

bool DocumentHistory::NoteChange(const ControlView& control, Time now) {
  ControlEdit edit = FindEdit(text_, selection_, control, known_ ? EqualEnds::kBelong : EqualEnds::kLeftOut);
  const ControlRange before = std::exchange(selection_, control.Selection());
  if (edit.empty()) {
    return false;
  }
  edit.removedFormats = KnownFormats(edit);
  known_.reset();
  TakeUp({&edit, 1});
  history_.Record(std::move(edit), before, selection_, now);
  return true;
}

void DocumentHistory::KnowFormats(ControlPos start, FormattedText text) {
  knownStart_ = start;
  known_ = std::move(text);
}

SharedFormats DocumentHistory::KnownFormats(const ControlEdit& edit) const {
  if (!known_ || edit.removed.empty() || edit.start < knownStart_) {
    return nullptr;
  }
  const std::size_t start = edit.start.value - knownStart_.value;
  const std::u16string_view text = known_->text();
  if (start > text.size() || text.substr(start, edit.removed.size()) != edit.removed) {
    return nullptr;
  }
  return std::make_shared<const TextFormats>(FormatFinder(*known_).Of(start, edit.removed.size()));
}

void DocumentHistory::NoteEdits(const ControlView& control, std::vector<ControlEdit> edits) {
  known_.reset();
  TakeUp(edits);
  if (ControlEdit rest = FindEditByWholeText(text_, control); !rest.empty()) {
    TakeUp({&rest, 1});
    edits.push_back(std::move(rest));
  }
  const ControlRange selectionBefore = std::exchange(selection_, control.Selection());
  history_.Seal();
  history_.BeginCommand(selectionBefore);
  for (ControlEdit& edit : edits) {
    history_.Record(std::move(edit), selectionBefore, selection_, {});
  }
  history_.EndCommand(selection_);
}

bool DocumentHistory::NoteFormats(const ControlView& control, ControlPos start, const TextFormats& before,
                                  const TextFormats& after) {
  if (before == after) {
    return false;
  }
  ControlEdit edit{start, {}, {}};
  edit.removedFormats = std::make_shared<const TextFormats>(before);
  edit.insertedFormats = std::make_shared<const TextFormats>(after);
  history_.Seal();
  history_.Record(std::move(edit), selection_, control.Selection(), {});
  history_.Seal();
  return true;
}

void DocumentHistory::NoteRebuild(const ControlView& control, RichText before, bool hasFormatting,
                                  std::function<void(bool isUndone)> onUndo) {
  std::vector<ControlEdit> edits;
  ControlEdit edit = FindEditByWholeText(text_, control);
  if (!edit.empty()) {
    Make({&edit, 1}, text_);
    edits = SplitByLines(std::move(edit));
    MoveMark(edits);
  }
  const ControlRange selectionBefore = std::exchange(selection_, control.Selection());
  if (!edits.empty() || before || hasFormatting) {
    history_.RecordRebuild(std::move(edits), std::move(before), selectionBefore, selection_);
    if (onUndo) {
      history_.Attach(std::move(onUndo));
    }
  }
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
  const std::vector<ControlEdit>& lastEdits = history_.done().back().edits;
  CatchUp(target, lastEdits.empty() ? ControlRange{} : lastEdits.back().insertedRange());
  const UndoStep& step = history_.done().back();
  if (step.rebuilds) {
    history_.KeepAfter(target.Capture());
  }
  std::vector<ControlEdit> edits = Reversed(step.edits);
  if (!step.rebuilds) {
    KeepInsertedFormats(target, edits);
  }
  std::span<const ControlEdit> rest = edits;
  if (step.before) {
    const std::size_t rebuilt = edits.size() - step.editsBefore;
    Rebuild(target, step.before, rest.first(rebuilt));
    rest = rest.subspan(rebuilt);
  } else if (step.after) {
    Rebuild(target, nullptr, std::exchange(rest, {}));
  }
  Replay(target, rest);
  target.Select(step.selectionBefore);
  selection_ = target.Selection();
  history_.MoveToUndone();
  Tell(history_.undone().back(), true);
  return true;
}

bool DocumentHistory::Redo(UndoTarget& target) {
  if (!canRedo()) {
    return false;
  }
  const std::vector<ControlEdit>& firstEdits = history_.undone().back().edits;
  CatchUp(target, firstEdits.empty() ? ControlRange{} : firstEdits.front().removedRange());
  if (!canRedo()) {  // what was caught up on is a new change
    return false;
  }
  const UndoStep& step = history_.undone().back();
  if (step.rebuilds) {
    history_.KeepBefore(target.Capture());
  }
  if (step.before || step.after) {
    Rebuild(target, step.after, step.edits);
  } else {
    Replay(target, step.edits);
  }
  target.Select(step.selectionAfter);
  selection_ = target.Selection();
  history_.MoveToDone();
  Tell(history_.done().back(), false);
  return true;
}

// What undoing takes away, redoing brings back with its formats.
void DocumentHistory::KeepInsertedFormats(const UndoTarget& target, std::vector<ControlEdit>& edits) {
  constexpr std::size_t kFew = 8;
  const std::optional<std::vector<ControlRange>> places = PlacesBeforeAll(edits);
  if (!places) {
    return;
  }
  std::optional<FormattedText> part;
  std::optional<FormatFinder> finder;
  std::size_t partStart = 0;
  if (edits.size() > kFew) {
    part = target.Formatted({{0}, target.Length()});
    if (!part) {
      return;
    }
    finder.emplace(*part);
  }
  for (std::size_t i = 0; i < edits.size(); ++i) {
    const ControlRange place = (*places)[i];
    if (edits[i].removed.empty() || edits[i].removedFormats) {
      continue;
    }
    if (edits.size() <= kFew) {
      part = target.Formatted(place);
      if (!part) {
        return;
      }
      finder.emplace(*part);
      partStart = place.start.value;
    }
    edits[i].removedFormats =
        std::make_shared<const TextFormats>(finder->Of(place.start.value - partStart, place.length));
    history_.KeepInserted(edits.size() - 1 - i, edits[i].removedFormats);
  }
}

void DocumentHistory::Tell(const UndoStep& step, bool isUndone) {
  if (step.onUndo) {
    step.onUndo(isUndone);
  }
}

// A change that nobody has told of becomes a step of its own.
void DocumentHistory::CatchUp(const ControlView& control, ControlRange place) {
  history_.Seal();
  if (!LooksTheSame(text_, control, place)) {
    ControlEdit edit = FindEditByWholeText(text_, control);
    if (!edit.empty()) {
      TakeUp({&edit, 1});
      const ControlRange selectionBefore = std::exchange(selection_, control.Selection());
      history_.Record(std::move(edit), selectionBefore, selection_, {});
      history_.Seal();
    }
  }
}

void DocumentHistory::TakeUp(std::span<const ControlEdit> edits) {
  Make(edits, text_);
  MoveMark(edits);
}

void DocumentHistory::MoveMark(std::span<const ControlEdit> edits) {
  for (const ControlEdit& edit : edits) {
    if (marked_) {
      marked_ = FollowEdit(*marked_, edit.removedRange(), edit.inserted.size());
    }
  }
}

void DocumentHistory::Replay(UndoTarget& target, std::span<const ControlEdit> edits) {
  target.Replace(edits);
  TakeUp(edits);
}

// Rich text can come back with a line break more at its end than it went out with.
void DocumentHistory::Rebuild(UndoTarget& target, const RichText& richText, std::span<const ControlEdit> edits) {
  TextMirror text = text_;  // the known text stays as it is until the control has changed
  Make(edits, text);
  target.Rebuild(richText, text.Text());
  text_ = std::move(text);
  MoveMark(edits);
  const ControlEdit wrong = FindEditByWholeText(text_, target);
  if (!wrong.empty()) {
    const ControlEdit right = Reversed(wrong);
    target.Replace({&right, 1});
  }
}

UndoElement DocumentHistory::UndoEntry(std::size_t index) const {
  TextMirror text = text_;
  for (const UndoStep& step : history_.done() | std::views::drop(index) | std::views::reverse) {
    Make(Reversed(step.edits), text);
  }
  return Entry(text, index == 0 ? history_.startSelection() : history_.done()[index - 1].selectionAfter);
}

UndoElement DocumentHistory::RedoEntry(std::size_t index) const {
  TextMirror text = text_;
  for (const UndoStep& step : history_.undone() | std::views::drop(index) | std::views::reverse) {
    Make(step.edits, text);
  }
  return Entry(text, history_.undone()[index].selectionAfter);
}

}  // namespace scrivanta
