#include "shell/history/UndoHistory.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <string_view>
#include <utility>

namespace scrivanta {
namespace {

constexpr std::chrono::seconds kPause{3};
constexpr std::size_t kMostGathered = 100;  // characters in a step of typing or erasing
constexpr std::size_t kMostTyped = 32;      // characters at once, as an input method hands them over
constexpr std::u16string_view kWordEnds = u" \t　，。！？；：、…）》】”’";

bool EndsWord(char16_t unit) {
  return kWordEnds.find(unit) != std::u16string_view::npos;
}

// Between two characters typed one after the other.
bool StepEndsBetween(char16_t before, char16_t after) {
  return before == u'\r' || after == u'\r' || (EndsWord(before) && !EndsWord(after));
}

std::size_t CostOf(const RichText& richText) {
  return richText ? richText->size() : 0;
}

std::size_t CostOf(const std::vector<ControlEdit>& edits) {
  return std::accumulate(edits.begin(), edits.end(), std::size_t{0},
                         [](std::size_t sum, const ControlEdit& edit) { return sum + CostOf(edit); });
}

std::size_t CostOf(const UndoStep& step) {
  return sizeof step + CostOf(step.edits) + CostOf(step.before) + CostOf(step.after);
}

}  // namespace

void UndoHistory::Clear(ControlRange selection) {
  done_.clear();
  undone_.clear();
  bytes_ = 0;
  startSelection_ = selection;
  commandHasStep_ = false;
  Seal();
}

void UndoHistory::Record(ControlEdit edit, ControlRange selectionBefore, ControlRange selectionAfter, Time now) {
  const Gathering kind = commandDepth_ > 0 ? Gathering::kNone : KindOf(edit, selectionBefore);
  if (Gathers(kind, edit, now)) {
    Gather(kind, edit);
    done_.back().selectionAfter = selectionAfter;
  } else {
    UndoStep& step = StepFor(selectionBefore, selectionAfter);
    bytes_ += CostOf(edit);
    step.edits.push_back(std::move(edit));
    ForgetOldest();
  }
  open_ = kind;
  lastEdit_ = now;
}

void UndoHistory::RecordRebuild(std::vector<ControlEdit> edits, RichText before, ControlRange selectionBefore,
                                ControlRange selectionAfter) {
  Seal();
  UndoStep& step = StepFor(selectionBefore, selectionAfter);
  if (!step.rebuilds) {  // of several the first one is enough: it brings back what was before all of them
    step.rebuilds = true;
    step.editsBefore = step.edits.size();
    bytes_ += CostOf(before);
    step.before = std::move(before);
  }
  bytes_ += CostOf(edits);
  std::ranges::move(edits, std::back_inserter(step.edits));
  ForgetOldest();
}

UndoHistory::Gathering UndoHistory::KindOf(const ControlEdit& edit, ControlRange selectionBefore) {
  if (!edit.inserted.empty()) {
    return edit.inserted.size() <= kMostTyped ? Gathering::kTyping : Gathering::kNone;
  }
  if (!selectionBefore.empty() || edit.removed.size() > 2) {  // a surrogate pair goes at once
    return Gathering::kNone;
  }
  return Gathering::kErasing;
}

bool UndoHistory::Gathers(Gathering kind, const ControlEdit& edit, Time now) const {
  if (kind == Gathering::kNone || kind != open_ || done_.empty() || !undone_.empty() || now - lastEdit_ > kPause) {
    return false;
  }
  const ControlEdit& last = done_.back().edits.back();
  if (last.removed.size() + last.inserted.size() >= kMostGathered) {
    return false;
  }
  if (kind == Gathering::kTyping) {
    return edit.removed.empty() && edit.start == last.insertedRange().end() &&
           !StepEndsBetween(last.inserted.back(), edit.inserted.front());
  }
  // Backwards or forwards: some controls move the caret before they erase, so it does not tell which.
  const bool adjoins = edit.removedRange().end() == last.start || edit.start == last.start;
  return adjoins && edit.removed.front() != u'\r' && last.removed.front() != u'\r';
}

void UndoHistory::Gather(Gathering kind, const ControlEdit& edit) {
  ControlEdit& last = done_.back().edits.back();
  bytes_ += (edit.removed.size() + edit.inserted.size()) * sizeof(char16_t) + CostOf(edit.removedFormats);
  const bool isBefore = kind == Gathering::kErasing && edit.start < last.start;
  if (kind == Gathering::kErasing) {
    const bool areKnown = edit.removedFormats && last.removedFormats;
    last.removedFormats =
        areKnown ? std::make_shared<const TextFormats>(isBefore ? Joined(*edit.removedFormats, *last.removedFormats)
                                                                : Joined(*last.removedFormats, *edit.removedFormats))
                 : nullptr;
  }
  if (isBefore) {
    last.start = edit.start;
    last.removed.insert(0, edit.removed);
  } else {
    last.removed += edit.removed;
    last.inserted += edit.inserted;
  }
}

// What a change is recorded in: within a command the command's own step, otherwise a new one.
UndoStep& UndoHistory::StepFor(ControlRange selectionBefore, ControlRange selectionAfter) {
  for (const UndoStep& step : undone_) {
    bytes_ -= CostOf(step);
  }
  undone_.clear();
  if (!commandHasStep_) {
    bytes_ += sizeof(UndoStep);
    done_.emplace_back().selectionBefore = commandDepth_ > 0 ? commandSelection_ : selectionBefore;
    commandHasStep_ = commandDepth_ > 0;
  }
  done_.back().selectionAfter = selectionAfter;
  return done_.back();
}

void UndoHistory::ForgetOldest() {
  while (bytes_ > mostBytes_ && done_.size() > 1) {
    bytes_ -= CostOf(done_.front());
    startSelection_ = done_.front().selectionAfter;
    done_.pop_front();
  }
}

void UndoHistory::BeginCommand(ControlRange selection) {
  if (commandDepth_++ == 0) {
    Seal();
    commandSelection_ = selection;
    commandHasStep_ = false;
  }
}

void UndoHistory::EndCommand(ControlRange selection) {
  if (--commandDepth_ > 0) {
    return;
  }
  if (commandHasStep_) {
    done_.back().selectionAfter = selection;
  }
  commandHasStep_ = false;
  Seal();
}

void UndoHistory::KeepAfter(RichText after) {
  Keep(done_.back().after, std::move(after));
}

void UndoHistory::KeepBefore(RichText before) {
  undone_.back().editsBefore = 0;
  Keep(undone_.back().before, std::move(before));
}

void UndoHistory::KeepInserted(std::size_t edit, SharedFormats formats) {
  bytes_ += CostOf(formats);
  done_.back().edits[edit].insertedFormats = std::move(formats);
  ForgetOldest();
}

void UndoHistory::Keep(RichText& kept, RichText richText) {
  bytes_ += CostOf(richText);
  bytes_ -= CostOf(kept);
  kept = std::move(richText);
  ForgetOldest();
  while (bytes_ > mostBytes_ && undone_.size() > 1) {  // the state farthest ahead
    bytes_ -= CostOf(undone_.front());
    undone_.pop_front();
  }
}

void UndoHistory::MoveToUndone() {
  Seal();
  commandHasStep_ = false;  // when undoing is itself a command, its own step may be the one undone
  undone_.push_back(std::move(done_.back()));
  done_.pop_back();
}

void UndoHistory::MoveToDone() {
  Seal();
  commandHasStep_ = false;
  done_.push_back(std::move(undone_.back()));
  undone_.pop_back();
}

}  // namespace scrivanta
