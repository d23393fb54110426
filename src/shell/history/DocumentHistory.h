// The text of the edit control as the program knows it, and its history: told of every change, it finds out what the
// change was, records it, and undoes and redoes. One object for the life of the control.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>

#include "shell/history/ControlEdit.h"
#include "shell/history/TextMirror.h"
#include "shell/history/UndoElement.h"
#include "shell/history/UndoHistory.h"

namespace scrivanta {

// The control as undoing changes it. What these do is not recorded: nobody tells the history of it. The first and the
// third may throw Interrupted, and have changed nothing then; the first does not when the text has formatting of its
// own.
class UndoTarget : public ControlView {
 public:
  // Makes the edits one after the other; the formatting of the rest stays.
  virtual void Replace(std::span<const ControlEdit> edits) = 0;
  // A part with its formats; nothing when the text has none of its own, or they cannot be taken apart.
  virtual std::optional<FormattedText> Formatted(ControlRange range) const = 0;
  // The whole as rich text; null when the text has no formatting of its own.
  virtual RichText Capture() const = 0;
  // Replaces the whole: by the rich text, or by the document text without formatting when there is none. The view stays
  // where it is.
  virtual void Rebuild(const RichText& richText, std::u16string_view documentText) = 0;
  // Selects, and scrolls the caret into view.
  virtual void Select(ControlRange range) = 0;
};

class DocumentHistory {
 public:
  using Time = UndoHistory::Time;

  explicit DocumentHistory(std::size_t mostBytes = UndoHistory::kMostBytes) : history_(mostBytes) {}

  // A document has been loaded: its state is the one from which undoing cannot go further back.
  void Reset(const ControlView& control);

  // To be called before the control may be changed by the user, and whenever the caret has moved; cheap. While the
  // control holds a change that has not been told yet, the call is passed over.
  void NoteSelection(const ControlView& control);
  // The formats where the next change may be; forgotten with it.
  void KnowFormats(ControlPos start, FormattedText text);
  // The control has changed. Returns whether the text has.
  bool NoteChange(const ControlView& control, Time now);
  // All of the text has been put in anew, with formatting or without. What was captured before brings the formatting
  // back. No step where nothing has changed. `onUndo`, when there is one, is told whenever the step has been undone
  // (true) or redone (false).
  void NoteRebuild(const ControlView& control, RichText before, bool hasFormatting,
                   std::function<void(bool isUndone)> onUndo = nullptr);

  // The edits have been made, all of them one step.
  void NoteEdits(const ControlView& control, std::vector<ControlEdit> edits);
  // The formats of a stretch have changed, and nothing else. False, and no step, when they are the same.
  bool NoteFormats(const ControlView& control, ControlPos start, const TextFormats& before, const TextFormats& after);
  // Who is told whenever the newest step has been undone (true) or redone (false).
  void Attach(std::function<void(bool isUndone)> onUndo) { history_.Attach(std::move(onUndo)); }

  void BeginCommand(const ControlView& control);
  void EndCommand(const ControlView& control);

  // While undo is not allowed, Undo and Redo do nothing.
  void Allow(bool allowed) { allowed_ = allowed; }
  bool canUndo() const noexcept { return allowed_ && history_.undoCount() >= 2; }
  bool canRedo() const noexcept { return allowed_ && history_.redoCount() >= 1; }
  // Return whether they did something. They select what was selected before the change, or after it. When they throw
  // Interrupted, control and history are as they were.
  bool Undo(UndoTarget& target);
  bool Redo(UndoTarget& target);

  // The entries of the stacks, oldest first, made on demand from the present text and the steps between.
  UndoElement UndoEntry(std::size_t index) const;
  UndoElement RedoEntry(std::size_t index) const;

  // A part that stays marked whatever is edited, undone and redone; nothing when all of it has been taken away with
  // what is around it, and after Reset.
  void Mark(std::optional<ControlRange> part) { marked_ = part; }
  const std::optional<ControlRange>& marked() const noexcept { return marked_; }

  const TextMirror& text() const noexcept { return text_; }
  const UndoHistory& history() const noexcept { return history_; }

 private:
  void TakeUp(std::span<const ControlEdit> edits);
  void MoveMark(std::span<const ControlEdit> edits);
  void CatchUp(const ControlView& control, ControlRange place);
  bool MayBeErasing(ControlRange selection) const;
  SharedFormats KnownFormats(const ControlEdit& edit) const;
  void KeepInsertedFormats(const UndoTarget& target, std::vector<ControlEdit>& edits);
  void Replay(UndoTarget& target, std::span<const ControlEdit> edits);
  void Rebuild(UndoTarget& target, const RichText& richText, std::span<const ControlEdit> edits);
  static void Tell(const UndoStep& step, bool isUndone);

  TextMirror text_;
  UndoHistory history_;
  ControlRange selection_;
  ControlPos knownStart_;
  std::optional<FormattedText> known_;
  std::optional<ControlRange> marked_;
  bool allowed_ = true;
};

// A command's changes are one step from the moment that one is made until it goes.
class UndoCommand {
 public:
  UndoCommand(DocumentHistory& history, const ControlView& control) : history_(history), control_(control) {
    history_.BeginCommand(control_);
  }
  ~UndoCommand() { history_.EndCommand(control_); }
  UndoCommand(const UndoCommand&) = delete;
  UndoCommand& operator=(const UndoCommand&) = delete;

 private:
  DocumentHistory& history_;
  const ControlView& control_;
};

}  // namespace scrivanta
