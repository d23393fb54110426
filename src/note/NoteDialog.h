// What FrmNote does, without its window: one note, kept without being asked.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "note/NoteStore.h"
#include "shell/workbench/Workbench.h"
#include "text/Interface.h"

namespace scrivanta {

// The window's controls.
class NoteView : public Interface {
 public:
  virtual std::u16string Text() const = 0;  // line breaks as CR LF, here and below
  virtual std::u16string SelectedText() const = 0;
  // The whole text, at the beginning, and a text at the end.
  virtual void SetText(const std::u16string& text) = 0;
  virtual void Append(const std::u16string& text) = 0;
  virtual void ApplyLook(const NoteLook& look) = 0;
  // The place of the window goes into the look.
  virtual void ReadPlace(NoteLook& look) const = 0;
};

class NoteDialog {
 public:
  using Time = std::chrono::steady_clock::time_point;
  // Within two seconds of a pause, and not much later without one.
  static constexpr std::chrono::milliseconds kPause{1000};
  static constexpr std::chrono::milliseconds kMost{5000};

  // The claim is the note's, see NoteStore.
  NoteDialog(Workbench& workbench, NoteStore& store, std::string name, std::unique_ptr<FileClaim> claim)
      : workbench_(workbench), store_(store), name_(std::move(name)), claim_(std::move(claim)) {}

  const std::string& name() const noexcept { return name_; }

  // The window opens. Throws FileError.
  void Open(NoteView& view);
  // Text or place have changed.
  void NoteChange(Time now);
  // Keeps the note when it is due: true when it was. Throws FileError, once for a failure; the next change tries again.
  bool Tick(const NoteView& view, Time now);
  // The window closes, by the user or with the program. Throws FileError, and the window is to stay.
  void Close(const NoteView& view, bool byUser);
  // Asks; false when the note stays. Throws FileError.
  bool Delete();

  // The selection, or all, in place of the document's selection.
  void PutIntoDocument(const NoteView& view);
  // On lines of its own at the end of the note.
  void TakeText(NoteView& view, const std::u16string& text, Time now);
  // They ask, and leave the look when they are cancelled.
  void AskForFont(NoteView& view, Time now);
  void AskForOpacity(NoteView& view, Time now);
  void SetPaper(NoteView& view, std::uint32_t colour, Time now);
  const NoteLook& look() const noexcept { return look_; }

 private:
  void Keep(const NoteView& view);

  Workbench& workbench_;
  NoteStore& store_;
  std::string name_;
  std::unique_ptr<FileClaim> claim_;
  NoteLook look_;
  bool isKept_ = true;
  std::optional<Time> first_;  // of the changes that nothing has tried to keep yet
  Time last_;
};

}  // namespace scrivanta
