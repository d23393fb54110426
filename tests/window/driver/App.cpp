#include "window/driver/App.h"

#include <commctrl.h>
#include <shellapi.h>
#include <shlobj.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "ScrivantaApp.h"
#include "shell/window/FrmMain.h"
#include "shell/window/FrmMainControls.h"
#include "shell/window/MenuTree.h"
#include "text/win/WideText.h"
#include "win/InputBoxControls.h"
#include "window/driver/Drop.h"
#include "window/driver/Keyboard.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"

namespace scrivanta {

namespace {

constexpr char16_t kInterruptCaption[] = u"中断继续运行【通用】";
// The main window's icon in the tray, and how its events arrive.
constexpr UINT kTrayIconId = 1;
constexpr wchar_t kMenuClass[] = L"#32768";
constexpr UINT kTrayMessage = WM_MOUSEMOVE;

// Without the shortcut that follows a tab; "-" for a separator.
std::u16string CaptionOf(HMENU menu, int position) {
  MENUITEMINFOW item{};
  item.cbSize = sizeof(item);
  item.fMask = MIIM_FTYPE;
  GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &item);
  if ((item.fType & MFT_SEPARATOR) != 0) {
    return u"-";
  }
  std::array<wchar_t, 256> text{};
  GetMenuStringW(menu, static_cast<UINT>(position), text.data(), static_cast<int>(text.size()), MF_BYPOSITION);
  const std::u16string caption = FromWide(text.data());
  return caption.substr(0, caption.find(u'\t'));
}

// The first of the controls, however deep, that shows a tree; null when there is none.
HWND TreeIn(HWND window) {
  HWND found = nullptr;
  EnumChildWindows(
      window,
      [](HWND child, LPARAM result) -> BOOL {
        if (ClassOf(child) != WC_TREEVIEWW) {
          return TRUE;
        }
        *reinterpret_cast<HWND*>(result) = child;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&found));
  return found;
}

std::u16string SelectedInTree(HWND tree) {
  std::array<wchar_t, MAX_PATH> text{};
  TVITEMW item{};
  item.mask = TVIF_TEXT;
  item.hItem = reinterpret_cast<HTREEITEM>(Send(tree, TVM_GETNEXTITEM, TVGN_CARET));
  item.pszText = text.data();
  item.cchTextMax = static_cast<int>(text.size());
  return item.hItem != nullptr && Send(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)) != FALSE
             ? FromWide(text.data())
             : std::u16string();
}

struct MenuPlace {
  HMENU popup = nullptr;
  int barPosition = 0;
  int position = 0;
};

MenuPlace FindInMenu(HMENU bar, std::string_view controlName) {
  const auto id = MenuCommandId(controlName);
  for (int barPosition = 0; barPosition < GetMenuItemCount(bar); ++barPosition) {
    const HMENU popup = GetSubMenu(bar, barPosition);
    for (int position = 0; position < GetMenuItemCount(popup); ++position) {
      if (id && GetMenuItemID(popup, position) == static_cast<UINT>(*id)) {
        return {popup, barPosition, position};
      }
    }
  }
  FailWithPicture("no such menu entry: " + std::string(controlName));
}

}  // namespace

App::~App() {
  if (!thread_.joinable()) {
    return;
  }
  try {
    WaitUntil("the program to end", [this] {
      DismissOne();
      return !running_;
    });
    WaitForEnd();
  } catch (const std::exception& error) {
    // Its thread cannot be left behind running.
    std::printf("%s\n", error.what());
    std::fflush(stdout);
    std::_Exit(EXIT_FAILURE);
  }
}

void App::Start(const std::u16string& commandLine) {
  running_ = true;
  thread_ = std::thread([this, commandLine] {
    try {
      exitCode_ = RunApp(GetModuleHandleW(nullptr), commandLine, &window_);
    } catch (...) {
      failure_ = std::current_exception();
    }
    running_ = false;
  });
  WaitUntil("the program's window", [this] { return window_ != nullptr || HasQuestion() || !running_; });
  if (const HWND window = FindMainWindow()) {
    fence_ = std::make_unique<MessageFence>(window);
    Settle();
  }
}

void App::Open(const std::filesystem::path& document) {
  Menu("mnuOpen");
  ChooseFile(document);
}

void App::Close() {
  PostMessageW(MainWindow(), WM_SYSCOMMAND, SC_CLOSE, 0);
  Settle();
}

int App::WaitForEnd() {
  WaitUntil("the program to end", [this] { return !running_; });
  thread_.join();
  fence_.reset();
  window_ = nullptr;
  if (failure_) {
    std::rethrow_exception(std::exchange(failure_, nullptr));
  }
  return exitCode_;
}

void App::Settle() {
  fence_->WaitForPosted([this] { return !running_; });
  WaitUntil("the command to end or to ask", [this] {
    return !running_ || HasQuestion() ||
           (IsWindowEnabled(MainWindow()) != FALSE && IsWindowEnabled(Editor().window()) != FALSE);
  });
}

bool App::HasQuestion() const {
  for (const HWND window : TopWindows(GetCurrentProcessId(), kDialogClass)) {
    if (IsWindowEnabled(window) != FALSE && TextOf(window) != kInterruptCaption) {
      return true;
    }
  }
  return false;
}

void App::Menu(std::string_view controlName) {
  StartMenu(controlName);
  Settle();
}

void App::StartMenu(std::string_view controlName) {
  if (!MenuEntry(controlName).enabled) {
    FailWithPicture("the menu entry is disabled: " + std::string(controlName));
  }
  PostMessageW(MainWindow(), WM_COMMAND, static_cast<WPARAM>(*MenuCommandId(controlName)), 0);
}

ShownMenuEntry App::MenuEntry(std::string_view controlName) const {
  const MenuPlace place = FindInMenu(GetMenu(MainWindow()), controlName);
  // The states are brought up to date when the menu opens.
  Send(MainWindow(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(place.popup), place.barPosition);
  const UINT state = GetMenuState(place.popup, static_cast<UINT>(place.position), MF_BYPOSITION);
  return {CaptionOf(place.popup, place.position), (state & (MF_GRAYED | MF_DISABLED)) == 0, (state & MF_CHECKED) != 0};
}

std::vector<std::u16string> App::MenuCaptions() const {
  std::vector<std::u16string> captions;
  const HMENU bar = GetMenu(MainWindow());
  for (int barPosition = 0; barPosition < GetMenuItemCount(bar); ++barPosition) {
    captions.push_back(CaptionOf(bar, barPosition));
    const HMENU popup = GetSubMenu(bar, barPosition);
    for (int position = 0; position < GetMenuItemCount(popup); ++position) {
      captions.push_back(CaptionOf(popup, position));
    }
  }
  return captions;
}

MessageBoxDriver App::ExpectBox(const Message& message) {
  return {GetCurrentProcessId(), message, [this] { Settle(); }};
}

void App::AnswerInput(const InputQuestion& question, std::u16string_view answer) {
  DialogDriver box = ExpectDialog(question.title);
  ExpectShown("the prompt of the input box", question.prompt, [&] { return box.Text(IDC_INPUT_PROMPT); });
  ExpectShown("the preset text of the input box", question.preset, [&] { return box.Text(IDC_INPUT_VALUE); });
  if (!answer.empty()) {
    box.Type(IDC_INPUT_VALUE, answer);
  }
  PostMessageW(box.Control(answer.empty() ? IDCANCEL : IDOK), BM_CLICK, 0, 0);
  box.WaitUntilGone();
  Settle();
}

DialogDriver App::ExpectDialog(std::u16string_view caption) {
  const HWND window = WaitFor("the dialog \"" + Shown(caption) + "\"",
                              [&] { return FindTopWindow(GetCurrentProcessId(), kDialogClass, caption); });
  return {window, [this] { Settle(); }};
}

DialogDriver App::ExpectInterruptWindow() {
  return ExpectDialog(kInterruptCaption);
}

FileDialogDriver App::ExpectFileDialog() {
  return FileDialogDriver(GetCurrentProcessId());
}

void App::ChooseFile(const std::filesystem::path& file) {
  ExpectFileDialog().Choose(file);
  Settle();
}

void App::CancelFileDialog() {
  ExpectFileDialog().Cancel();
  Settle();
}

void App::ChooseFolder(const std::filesystem::path& chosen) {
  const HWND dialog = WaitFor("the dialog for choosing a folder", [] {
    for (const HWND window : TopWindows(GetCurrentProcessId(), kDialogClass)) {
      if (IsWindowEnabled(window) != FALSE && TreeIn(window) != nullptr) {
        return window;
      }
    }
    return HWND{};
  });
  WaitUntil("the folder to be selected", [&] {
    Send(dialog, BFFM_SETSELECTIONW, TRUE, reinterpret_cast<LPARAM>(chosen.c_str()));
    return SelectedInTree(TreeIn(dialog)) == chosen.filename().u16string();
  });
  PostMessageW(GetDlgItem(dialog, IDOK), BM_CLICK, 0, 0);
  WaitUntil("the dialog for choosing a folder to go", [&] { return IsWindow(dialog) == FALSE; });
  Settle();
}

HWND App::FindMainWindow() const {
  if (const HWND window = window_) {
    return window;
  }
  const std::vector<HWND> windows = TopWindows(GetCurrentProcessId(), kMainWindowClass);
  return windows.empty() ? nullptr : windows.front();
}

HWND App::MainWindow() const {
  const HWND window = FindMainWindow();
  if (window == nullptr) {
    FailWithPicture("the program has no window");
  }
  return window;
}

EditBoxDriver App::Editor() const {
  return EditBoxDriver(GetDlgItem(MainWindow(), RichTextBox1));
}

void App::ExpectText(std::u16string_view text) const {
  ExpectShown("the document's text", text, [this] { return Text(); });
}

void App::ExpectCaption(std::u16string_view caption) const {
  ExpectShown("the caption", caption, [this] { return Caption(); });
}

void App::ExpectStatus(std::u16string_view text) const {
  ExpectShown("the first status panel", text, [this] { return Status(); });
}

void App::ExpectRemark(std::u16string_view remark) const {
  ExpectShown("the remark in the first status panel", remark, [this] {
    const std::u16string status = Status();
    constexpr std::u16string_view kBefore = u"    ";
    const std::size_t before = status.rfind(kBefore);
    return before == std::u16string::npos ? std::u16string() : status.substr(before + kBefore.size());
  });
}

std::u16string App::Caption() const {
  return TextOf(MainWindow());
}

std::u16string App::Status() const {
  return StatusPart(0);
}

std::u16string App::StatusPart(std::size_t part) const {
  const HWND bar = GetDlgItem(MainWindow(), StatusBar1);
  std::wstring text(LOWORD(Send(bar, SB_GETTEXTLENGTHW, part)) + std::size_t{1}, L'\0');
  Send(bar, SB_GETTEXTW, part, reinterpret_cast<LPARAM>(text.data()));
  text.pop_back();
  return FromWide(text);
}

std::u16string App::Panel(StatusPanel panel) const {
  return StatusPart(static_cast<std::size_t>(panel) + 1);
}

void App::ExpectPanel(StatusPanel panel, std::u16string_view text) const {
  ExpectShown("a panel of the status bar", text, [&] { return Panel(panel); });
}

void App::PostClickOn(StatusPanel panel) const {
  const HWND bar = GetDlgItem(MainWindow(), StatusBar1);
  RECT bounds{};
  Send(bar, SB_GETRECT, static_cast<WPARAM>(panel) + 1, reinterpret_cast<LPARAM>(&bounds));
  const LPARAM at = MAKELPARAM((bounds.left + bounds.right) / 2, (bounds.top + bounds.bottom) / 2);
  PostMessageW(bar, WM_LBUTTONDOWN, MK_LBUTTON, at);
  PostMessageW(bar, WM_LBUTTONUP, 0, at);
}

void App::ClickPanel(StatusPanel panel) {
  PostClickOn(panel);
  Settle();
}

void App::OpenPanelMenu(StatusPanel panel) {
  PostClickOn(panel);
  WaitForPopup();
}

std::optional<int> App::Progress() const {
  const HWND bar = GetDlgItem(MainWindow(), ProgressBar1);
  return IsWindowVisible(bar) != FALSE ? std::optional(static_cast<int>(Send(bar, PBM_GETPOS))) : std::nullopt;
}

void App::BringToFront() const {
  WaitUntil("the program to come to the front and to have the focus", [this] {
    const HWND front = GetForegroundWindow();
    GUITHREADINFO info{};
    info.cbSize = sizeof(info);
    GetGUIThreadInfo(GetWindowThreadProcessId(MainWindow(), nullptr), &info);
    DWORD owner = 0;
    GetWindowThreadProcessId(front, &owner);
    if (front != nullptr && owner == GetCurrentProcessId() && info.hwndActive == front && info.hwndFocus != nullptr) {
      return true;
    }
    ReleaseKey(VK_MENU);  // without a key the system may keep the window of another program in front
    SetForegroundWindow(GetLastActivePopup(MainWindow()));
    return false;
  });
}

void App::Press(std::string_view keys) {
  BringToFront();
  PressKeys(keys);
  fence_->WaitForKeys([this] { return !running_; });
  Settle();
}

void App::Type(std::u16string_view text) {
  BringToFront();
  TypeText(text);
  fence_->WaitForKeys([this] { return !running_; });
  Settle();
}

void App::Drop(std::initializer_list<std::filesystem::path> files) {
  DropOn(Editor().window(), files);
  Settle();  // the edit box has handed them on to the window
}

void App::DropOn(HWND window, std::initializer_list<std::filesystem::path> files) {
  PostMessageW(window, WM_DROPFILES, reinterpret_cast<WPARAM>(MakeDrop(files)), 0);
  Settle();
}

void App::StartToDrop(const std::filesystem::path& file) {
  PostMessageW(Editor().window(), WM_DROPFILES, reinterpret_cast<WPARAM>(MakeDrop({file})), 0);
}

void App::Minimise() {
  PostMessageW(MainWindow(), WM_SYSCOMMAND, SC_MINIMIZE, 0);
  Settle();
}

bool App::HasTrayIcon() const {
  NOTIFYICONDATAW icon{};
  icon.cbSize = sizeof(icon);
  icon.hWnd = MainWindow();
  icon.uID = kTrayIconId;
  return Shell_NotifyIconW(NIM_MODIFY, &icon) != FALSE;  // fails while there is no such icon
}

void App::ClickTrayIcon() {
  PostMessageW(MainWindow(), kTrayMessage, kTrayIconId, WM_LBUTTONUP);
  Settle();
}

void App::OpenTrayMenu() {
  PostMessageW(MainWindow(), kTrayMessage, kTrayIconId, WM_RBUTTONUP);
  WaitForPopup();
}

void App::WaitForPopup() const {
  WaitUntil("a menu to open", [] { return !TopWindows(GetCurrentProcessId(), kMenuClass).empty(); });
}

void App::ChooseInPopup(char16_t accessKey) {
  PostMessageW(MainWindow(), WM_CHAR, accessKey, 0);
  WaitUntil("the menu to go", [] { return TopWindows(GetCurrentProcessId(), kMenuClass).empty(); });
  Settle();
}

void App::DismissOne() const {
  for (const HWND window : TopWindows(GetCurrentProcessId(), kDialogClass)) {
    if (IsWindowEnabled(window) != FALSE) {
      const HWND no = GetDlgItem(window, IDNO);
      PostMessageW(no != nullptr ? no : window, no != nullptr ? BM_CLICK : WM_CLOSE, 0, 0);
      return;
    }
  }
  if (const HWND window = FindMainWindow(); window != nullptr && IsWindowEnabled(window) != FALSE) {
    PostMessageW(window, WM_CLOSE, 0, 0);
  }
}

}  // namespace scrivanta
