// The window of one note, above the windows of all programs.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "note/FrmNoteText.h"
#include "note/NoteDesk.h"
#include "note/NoteDialog.h"
#include "note/NoteSearch.h"
#include "win/Dialog.h"

namespace scrivanta {

class FrmNote final : public Dialog, private NoteView {
 public:
  FrmNote(WindowHost& host, Workbench& workbench, NoteDesk& desk, std::unique_ptr<NoteDialog> note);

  // Nothing once the window is closed.
  std::optional<std::string> Name() const;
  void Show() { ShowModeless(nullptr); }
  void TakeText(const std::u16string& text);
  // With the program: what fails is lost, for nobody is there to be asked.
  void CloseWithProgram() noexcept;

 private:
  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void OnClose() override;
  bool OnMenu(int commandId);
  bool OnKey(WPARAM key);
  void CloseByUser();
  void NoteChange();
  void TakeSelection();
  void AskForPaper();
  void LayOut();
  void StepAside();
  void FillList();
  void ChooseFromList();

  void ShowSearch(bool shown);
  void FindPlaces();
  void GoToPlace(bool forward);

  std::u16string Text() const override { return text_.Text(); }
  std::u16string SelectedText() const override { return text_.SelectedText(); }
  void SetText(const std::u16string& text) override { text_.SetText(text); }
  void Append(const std::u16string& text) override { text_.Append(text); }
  void ApplyLook(const NoteLook& look) override;
  void ReadPlace(NoteLook& look) const override;

  Workbench& workbench_;
  NoteDesk& desk_;
  std::unique_ptr<NoteDialog> note_;  // null once the window is closed
  FrmNoteText text_;
  NoteSearch search_;
  std::vector<std::string> listed_;  // the notes in CmbNotes
  bool isReady_ = false;
  bool isSearching_ = false;
};

}  // namespace scrivanta
