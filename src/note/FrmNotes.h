// The notes that are open, and the commands that open them.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "note/FrmNote.h"
#include "note/NoteDesk.h"
#include "shell/workbench/ScrivantaSubsystem.h"

namespace scrivanta {

class FrmNotes final : public Subsystem, public NoteDesk {
 public:
  explicit FrmNotes(WindowHost& windows) : windows_(windows) {}
  FrmNotes(const FrmNotes&) = delete;
  FrmNotes& operator=(const FrmNotes&) = delete;
  // The notes are kept as open.
  ~FrmNotes() override;

  // Opens those that were open last, or the last one, or a new one.
  void mnuNote(Workbench& workbench);
  // The document's selection goes to the end of the note that was opened last.
  void mnuSelectionToNote(Workbench& workbench);

 private:
  std::vector<NoteEntry> Notes() const override { return store_->List(); }
  std::size_t OpenCount() const override;
  void ShowNew() override;
  void Show(const std::string& name) override;
  void Use(Workbench& workbench);
  bool Open(const std::string& name);
  FrmNote* Find(const std::string& name) const;
  FrmNote* Last() const;

  WindowHost& windows_;
  Workbench* workbench_ = nullptr;  // once a command has been run
  std::unique_ptr<NoteStore> store_;
  std::vector<std::unique_ptr<FrmNote>> open_;  // and some that are closed by now
};

}  // namespace scrivanta
