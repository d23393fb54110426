// What the windows have in common that show the first lines of their result while the user chooses.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "win/Dialog.h"
#include "win/Handles.h"

namespace scrivanta {

class FrmConversion : public Dialog {
 protected:
  // The identifiers of the button that starts the work and of the text box for the preview.
  FrmConversion(WindowHost& host, int templateId, int startButton, int previewBox)
      : Dialog(host, templateId), startButton_(startButton), previewBox_(previewBox) {}

  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  // Fills the lists and boxes, before the first preview.
  virtual void ShowChoices() = 0;
  virtual std::u16string Preview() = 0;
  virtual void Start() = 0;
  // A button beside the one that starts; true when it is known.
  virtual bool OnButton(int) { return false; }
  // Called before each preview.
  virtual void EnableControls() {}

  void FillList(int combo, std::initializer_list<std::u16string_view> items);
  void FillWithDelimiters(int combo, std::u16string_view chosen);
  void FillWithUnits(int combo);
  // From 0.
  int Chosen(int combo) const;
  void Choose(int combo, int index);
  // After this message the preview is made anew; several of them make it once.
  void RefreshPreview();

 private:
  int startButton_;
  int previewBox_;
  OwnedFont previewFont_;
};

}  // namespace scrivanta
