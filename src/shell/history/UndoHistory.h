// The steps that can be undone and redone, each kept as what it changed, so that a small edit costs memory of its own
// size and not of the document's. It knows neither the text nor the control: DocumentHistory applies the steps.
#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "shell/history/ControlEdit.h"

namespace scrivanta {

// The rich text of a state, as RTF.
using RichText = std::shared_ptr<const std::string>;

struct UndoStep {
  std::vector<ControlEdit> edits;  // each in the text that those before it have left
  // Whether all of the rich text was replaced, and the formatting with it.
  bool rebuilds = false;
  // When it was: the state after the first few edits; null when the text had no formatting of its own.
  RichText before;
  std::size_t editsBefore = 0;
  RichText after;  // of the state after the step; known from the moment that it is undone
  ControlRange selectionBefore;
  ControlRange selectionAfter;
  // Told when the step has been undone (true) or redone (false): for what goes back and forth with the text.
  std::function<void(bool isUndone)> onUndo;
};

class UndoHistory {
 public:
  using Time = std::chrono::steady_clock::time_point;

  // Steps that take more memory than this are forgotten, oldest first; the newest is always kept.
  static constexpr std::size_t kMostBytes = std::size_t{256} << 20U;

  explicit UndoHistory(std::size_t mostBytes = kMostBytes) : mostBytes_(mostBytes) {}

  // Forgets everything: the present state is the one from which undoing cannot go further back.
  void Clear(ControlRange selection);

  // All of these take what has been undone away from redoing.
  //
  // Typed characters are gathered into words: a word with the blanks or the punctuation behind it is one step, a line
  // break another. Characters erased one by one at one place are gathered as far as the line goes. A pause, a
  // hundred characters, another place or kind of edit, and Seal end a step.
  void Record(ControlEdit edit, ControlRange selectionBefore, ControlRange selectionAfter, Time now);
  void RecordRebuild(std::vector<ControlEdit> edits, RichText before, ControlRange selectionBefore,
                     ControlRange selectionAfter);
  // Who is told of the newest step.
  void Attach(std::function<void(bool isUndone)> onUndo) { done_.back().onUndo = std::move(onUndo); }
  void Seal() { open_ = Gathering::kNone; }

  // What is recorded between the two is one step. They may be nested.
  void BeginCommand(ControlRange selection);
  void EndCommand(ControlRange selection);

  // The entries of the stacks; the starting state is the first of those to undo.
  std::size_t undoCount() const noexcept { return done_.size() + 1; }
  std::size_t redoCount() const noexcept { return undone_.size(); }

  // The newest step comes last. A step is moved after it has been undone or redone.
  const std::deque<UndoStep>& done() const noexcept { return done_; }
  const std::deque<UndoStep>& undone() const noexcept { return undone_; }
  void MoveToUndone();
  void MoveToDone();
  // The rich text after the newest step, when it is about to be undone; before it, when it is redone.
  void KeepAfter(RichText after);
  void KeepBefore(RichText before);
  // The formats of what the edits of the newest step have put in, when it is about to be undone.
  void KeepInserted(std::size_t edit, SharedFormats formats);

  ControlRange startSelection() const noexcept { return startSelection_; }
  // An estimate of the memory that the steps take.
  std::size_t bytes() const noexcept { return bytes_; }

 private:
  enum class Gathering { kNone, kTyping, kErasing };

  static Gathering KindOf(const ControlEdit& edit, ControlRange selectionBefore);
  bool Gathers(Gathering kind, const ControlEdit& edit, Time now) const;
  void Gather(Gathering kind, const ControlEdit& edit);
  UndoStep& StepFor(ControlRange selectionBefore, ControlRange selectionAfter);
  void Keep(RichText& kept, RichText richText);
  void ForgetOldest();

  std::size_t mostBytes_;
  std::size_t bytes_ = 0;
  std::deque<UndoStep> done_;
  std::deque<UndoStep> undone_;
  ControlRange startSelection_;
  Gathering open_ = Gathering::kNone;  // what the newest step can still take in
  Time lastEdit_;
  int commandDepth_ = 0;
  bool commandHasStep_ = false;
  ControlRange commandSelection_;
};

}  // namespace scrivanta
