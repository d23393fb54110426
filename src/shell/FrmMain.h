// The main window: the document's edit box, the menu, status bar and progress bar.
#pragma once

#include <windows.h>

#include <string>

#include "shell/CommandTable.h"
#include "win/RichEdit.h"
#include "win/Window.h"

namespace scrivanta {

inline constexpr wchar_t kMainWindowClass[] = L"ScrivantaMain";
inline constexpr char16_t kProgramTitle[] = u"Scrivanta";

class FrmMain final : public Window {
 public:
  FrmMain(WindowHost& host, const CommandTable& commands);

  // Makes the window and shows it.
  void Open(const std::u16string& commandLine);

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void MakeControls();
  void LayOut();
  void SetStatusPanel(const std::u16string& text);
  void UpdateMenu(HMENU popup) const;
  int DotsPerInch() const;

  const CommandTable& commands_;
  WindowClass windowClass_;
  RichEdit editBox_;     // RichTextBox1
  RichEdit workingBox_;  // RichTextBox0, never shown
  HWND statusBar_ = nullptr;
  HWND progressBar_ = nullptr;
};

}  // namespace scrivanta
