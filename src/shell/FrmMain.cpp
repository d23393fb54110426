#include "shell/FrmMain.h"

#include <commctrl.h>
#include <shellapi.h>

#include "shell/FrmMainControls.h"
#include "shell/FrmMainMenu.h"
#include "shell/MainLayout.h"
#include "shell/MenuTree.h"
#include "win/PlatformError.h"
#include "win/WideText.h"

namespace scrivanta {

namespace {

constexpr DWORD kEditBoxStyle = WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | WS_TABSTOP | ES_MULTILINE | ES_AUTOHSCROLL |
                                ES_AUTOVSCROLL | ES_NOHIDESEL | ES_WANTRETURN | WS_BORDER;
constexpr char16_t kNoPath[] = u"状态";

HWND MakeChild(HWND parent, const wchar_t* className, int controlId, DWORD style) {
  const HWND child = CreateWindowExW(0, className, L"", WS_CHILD | style, 0, 0, 0, 0, parent,
                                     reinterpret_cast<HMENU>(static_cast<INT_PTR>(controlId)), nullptr, nullptr);
  if (child == nullptr) {
    ThrowLastError("CreateWindowEx");
  }
  return child;
}

}  // namespace

FrmMain::FrmMain(WindowHost& host, const CommandTable& commands)
    : Window(host),
      commands_(commands),
      windowClass_(host.instance, kMainWindowClass, LoadIconW(host.instance, MAKEINTRESOURCEW(IDI_SCRIVANTA))) {}

void FrmMain::Open(const std::u16string&) {
  Create(windowClass_, ToWide(kProgramTitle), WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, {0, 0, 791, 584});
  SetMenu(handle(), BuildMainMenu().Release());
  host().loop.SetAccelerators(handle(), BuildAccelerators());
  SetStatusPanel(kNoPath);
  LayOut();
  ShowWindow(handle(), SW_SHOW);
  SetFocus(editBox_.handle());
}

LRESULT FrmMain::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      MakeControls();
      return 0;
    case WM_SIZE:
      LayOut();
      return 0;
    case WM_SETFOCUS:
      SetFocus(editBox_.handle());
      return 0;
    case WM_INITMENUPOPUP:
      UpdateMenu(reinterpret_cast<HMENU>(wParam));
      return 0;
    case WM_DESTROY:
      PostQuitMessage(0);
      return 0;
    default:
      return DefaultAnswer(message, wParam, lParam);
  }
}

void FrmMain::MakeControls() {
  workingBox_.Create(handle(), RichTextBox0, kEditBoxStyle & ~static_cast<DWORD>(WS_VISIBLE | WS_TABSTOP));
  editBox_.Create(handle(), RichTextBox1, kEditBoxStyle);
  statusBar_ = MakeChild(handle(), STATUSCLASSNAMEW, StatusBar1, WS_VISIBLE | SBARS_SIZEGRIP);
  progressBar_ = MakeChild(handle(), PROGRESS_CLASSW, ProgressBar1, 0);
  MakeChild(handle(), L"BUTTON", cmdDummy, 0);
}

void FrmMain::LayOut() {
  RECT inner{};
  GetClientRect(handle(), &inner);
  SendMessageW(statusBar_, WM_SIZE, 0, 0);
  const int dpi = DotsPerInch();
  const auto layout = LayOutMainWindow(PixelsToTwips(inner.right, dpi), PixelsToTwips(inner.bottom, dpi));
  if (!layout) {
    return;
  }
  const auto place = [dpi](HWND control, const TwipRect& bounds) {
    MoveWindow(control, TwipsToPixels(bounds.left, dpi), TwipsToPixels(bounds.top, dpi),
               TwipsToPixels(bounds.width, dpi), TwipsToPixels(bounds.height, dpi), TRUE);
  };
  place(editBox_.handle(), layout->editBox);
  place(workingBox_.handle(), layout->editBox);
  place(progressBar_, layout->progressBar);
}

void FrmMain::SetStatusPanel(const std::u16string& text) {
  SendMessageW(statusBar_, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(ToWide(text).c_str()));
}

void FrmMain::UpdateMenu(HMENU popup) const {
  const CHARRANGE selection = editBox_.Selection();
  WorkbenchState state;
  state.hasSelection = selection.cpMin != selection.cpMax;
  state.canPaste = editBox_.Send(EM_CANPASTE) != FALSE;
  EnableMenuEntries(popup, commands_, state);
}

int FrmMain::DotsPerInch() const {
  return static_cast<int>(GetDpiForWindow(handle()));
}

}  // namespace scrivanta
