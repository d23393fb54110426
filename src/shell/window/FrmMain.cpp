#include "shell/window/FrmMain.h"

#include <commctrl.h>
#include <imm.h>
#include <shellapi.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "shell/window/CommandLine.h"
#include "shell/window/FrmMainControls.h"
#include "shell/window/FrmMainMenu.h"
#include "shell/window/InstanceNumber.h"
#include "shell/window/MainLayout.h"
#include "shell/window/MenuTree.h"
#include "shell/window/Options.h"
#include "shell/window/WindowPlacement.h"
#include "shell/workbench/FailureMessage.h"
#include "text/DateTimeText.h"
#include "text/PlatformFile.h"
#include "text/Twips.h"
#include "text/win/WideText.h"
#include "win/DroppedFiles.h"
#include "win/Monitors.h"
#include "win/TopLevelWindows.h"
#include "win/WindowText.h"

namespace scrivanta {

namespace {

constexpr UINT kTrayIconId = 1;
// The icon's events come as mouse moves, with the event's message in the place of the position.
constexpr UINT kTrayMessage = WM_MOUSEMOVE;

enum Timer : UINT_PTR { kTypeDate = 1, kTypeTime = 2, kSnapshot = 3, kCloseWhenIdle = 4 };
// Until the keys of the shortcut are up again.
constexpr UINT kTypingDelay = 250;       // milliseconds
constexpr UINT kSnapshotInterval = 100;  // milliseconds
constexpr UINT kIdleInterval = 20;       // milliseconds
// Posted by the window to itself: a question must not stand in the midst of an activation.
constexpr UINT kLookAtFile = WM_APP;

int SystemDotsPerInch() {
  return static_cast<int>(GetDpiForSystem());
}

TwipRect ToTwips(const RECT& bounds) {
  const int dpi = SystemDotsPerInch();
  return {PixelsToTwips(bounds.left, dpi), PixelsToTwips(bounds.top, dpi),
          PixelsToTwips(bounds.right - bounds.left, dpi), PixelsToTwips(bounds.bottom - bounds.top, dpi)};
}

void Place(HWND window, const TwipRect& bounds, int dpi) {
  SetWindowPos(window, nullptr, TwipsToPixels(bounds.left, dpi), TwipsToPixels(bounds.top, dpi),
               TwipsToPixels(bounds.width, dpi), TwipsToPixels(bounds.height, dpi), SWP_NOZORDER | SWP_NOACTIVATE);
}

// Of a window that is maximised: where it stands when it is not.
RECT NormalBounds(HWND window) {
  WINDOWPLACEMENT placement{};
  placement.length = sizeof(placement);
  GetWindowPlacement(window, &placement);
  // Counted from the work area of the screen, not from the screen.
  MONITORINFO screen{};
  screen.cbSize = sizeof(screen);
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &screen);
  RECT bounds = placement.rcNormalPosition;
  OffsetRect(&bounds, screen.rcWork.left - screen.rcMonitor.left, screen.rcWork.top - screen.rcMonitor.top);
  return bounds;
}

bool IsDown(int key) {
  return GetKeyState(key) < 0;
}

}  // namespace

FrmMain::FrmMain(WindowHost& host, Folders folders, Settings& settings, const RegExpEngine& regExpEngine,
                 const CommandTable& commands)
    : Window(host),
      settings_(settings),
      regExpEngine_(regExpEngine),
      commands_(commands),
      icon_(LoadIconW(host.instance, MAKEINTRESOURCEW(IDI_SCRIVANTA))),
      windowClass_(host.instance, kMainWindowClass, icon_),
      taskbarCreated_(RegisterWindowMessageW(L"TaskbarCreated")),
      folders_(std::move(folders)),
      prompts_(host, [this] { return PromptOwner(); }),
      editor_({[this] { HandleEditorChange(); }, [this] { HandleEditorSelection(); }},
              {[this] { return StartWork(); }, [this] { TakeUpEditBox(); }}),
      busy_(host, bars_) {}

void FrmMain::Open(std::u16string_view commandLine) {
  const std::filesystem::path documentPath =
      commandLine.empty() ? ReadOptions(settings_).defaultFile : PathOfText(DocumentPathOf(commandLine));
  untitledCaption_ = NumberedCaption(kProgramTitle, TopLevelWindowTitles());
  Create(windowClass_, ToWide(untitledCaption_), WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, {0, 0, 0, 0});
  SetMenu(handle(), BuildMainMenu().Release());
  host().loop.SetAccelerators(handle(), BuildAccelerators());
  trayIcon_.emplace(handle(), kTrayIconId, kTrayMessage, icon_);
  const int show = RestoreSettings();
  RefreshMenu();
  ShowWindow(handle(), show);
  SetFocus(editor_.box());
  UpdateWindow(handle());
  if (!documentPath.empty()) {
    RunGuarded([this, documentPath] {
      if (!recovery_.Restore(documentPath)) {
        documentFile_.Load(documentPath);
      }
    });
  }
  RunGuarded([this] { recovery_.OfferLeftBehind(); });
}

int FrmMain::RestoreSettings() {
  std::vector<TwipRect> areas;
  std::ranges::transform(WorkAreas(), std::back_inserter(areas), &ToTwips);
  const std::optional<TwipRect> normal = ReadPlacementBeforeMaximising(settings_);
  const TwipRect placement = normal ? *normal : ReadPlacement(settings_);
  Place(handle(), FitPlacement(placement, areas), SystemDotsPerInch());
  editor_.SetWordWrap(ReadOptions(settings_).wraps);
  return normal ? SW_SHOWMAXIMIZED : SW_SHOW;
}

LRESULT FrmMain::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == taskbarCreated_ && IsIconic(handle()) != FALSE) {
    trayIcon_->Remove();
    trayIcon_->Add(Caption());
    return 0;
  }
  switch (message) {
    case WM_COMMAND:
      OnCommand(LOWORD(wParam), HIWORD(wParam));
      return 0;
    case WM_NOTIFY:
      if (reinterpret_cast<const NMHDR*>(lParam)->code == EN_SELCHANGE) {
        editor_.HandleSelection();
      }
      return 0;
    case kTrayMessage:
      if (LOWORD(lParam) == WM_LBUTTONUP) {
        OnTrayClick();
      } else if (LOWORD(lParam) == WM_RBUTTONUP && IsIconic(handle()) != FALSE) {
        OnTrayMenu();
      }
      return 0;
    case WM_DROPFILES:
      OnDrop(reinterpret_cast<HDROP>(wParam));
      return 0;
    case WM_TIMER:
      OnTimer(wParam);
      return 0;
    case WM_CLOSE:
      OnClose();
      return 0;
    default: {
      const std::optional<LRESULT> answer = OnStateMessage(message, wParam, lParam);
      return answer ? *answer : DefaultAnswer(message, wParam, lParam);
    }
  }
}

std::optional<LRESULT> FrmMain::OnStateMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      MakeControls();
      return 0;
    case WM_SIZE:
      OnSize(wParam);
      return 0;
    case WM_DPICHANGED: {
      const auto& bounds = *reinterpret_cast<const RECT*>(lParam);
      RefreshLook(LOWORD(wParam));
      SetWindowPos(handle(), nullptr, bounds.left, bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top,
                   SWP_NOZORDER | SWP_NOACTIVATE);
      return 0;
    }
    case WM_SETTINGCHANGE:
      RefreshLook(GetDpiForWindow(handle()));
      [[fallthrough]];
    case WM_SYSCOLORCHANGE:
      // Only top windows are told.
      TellControls(message, wParam, lParam);
      return std::nullopt;
    case WM_SETFOCUS:
      HandFocusOn();
      return 0;
    case WM_SETCURSOR:
      if (busy_.hasHourglass()) {
        SetCursor(LoadCursorW(nullptr, IDC_WAIT));
        return TRUE;
      }
      return std::nullopt;
    case WM_ACTIVATE:
      LookAtFileSoon(LOWORD(wParam) != WA_INACTIVE);
      return std::nullopt;
    case WM_ACTIVATEAPP:  // a dialog may be what is activated
      LookAtFileSoon(wParam != FALSE);
      return std::nullopt;
    case kLookAtFile:
      OnLookAtFile();
      return 0;
    case WM_QUERYENDSESSION:  // the user logs off
      return MayEndSession() ? TRUE : FALSE;
    case WM_ENDSESSION:
      if (wParam != FALSE && mayEndSession_) {
        recovery_.Forget();
      }
      return 0;
    case WM_INITMENUPOPUP:
      RefreshMenu();
      return 0;
    case WM_DESTROY:
      trayIcon_.reset();
      PostQuitMessage(0);
      return 0;
    default:
      return std::nullopt;
  }
}

void FrmMain::MakeControls() {
  bars_.Create(handle());
  editor_.Create(handle());
  // Takes the focus while text is taken back, so that the box does not scroll with the caret.
  CreateWindowExW(0, L"BUTTON", L"", WS_CHILD, 0, 0, 0, 0, handle(),
                  reinterpret_cast<HMENU>(static_cast<INT_PTR>(cmdDummy)), nullptr, nullptr);
  RefreshLook(GetDpiForWindow(handle()));
  busy_.SetMainWindow(handle());
  TakeUpEditBox();
  DragAcceptFiles(handle(), TRUE);
}

void FrmMain::TakeUpEditBox() {
  busy_.SetEditBox(editor_.box());
  editBoxKeys_.emplace(host(), editor_.box(), [this](UINT message, WPARAM wParam, LPARAM lParam) {
    return OnEditBoxMessage(message, wParam, lParam);
  });
  // The control would put a dropped file into the text.
  RevokeDragDrop(editor_.box());
  DragAcceptFiles(editor_.box(), TRUE);
}

void FrmMain::RefreshLook(UINT dotsPerInch) {
  look_.Apply(host().instance, handle(), bars_.statusBar(), dotsPerInch);
  LayOut();
}

void FrmMain::TellControls(UINT message, WPARAM wParam, LPARAM lParam) const {
  for (const HWND control : {editor_.box(), bars_.statusBar(), bars_.progressBar()}) {
    SendMessageW(control, message, wParam, lParam);
  }
}

void FrmMain::OnCommand(int id, int notification) {
  if (id == RichTextBox1) {
    if (notification == EN_CHANGE) {
      editor_.HandleChange();
    }
  } else if (!work_.IsBusy()) {
    FinishComposition();
    if (!isComposing_) {
      RunCommand(id);
    }
  }
}

void FrmMain::RunCommand(int commandId) {
  const MenuEntry* entry = MenuEntryOf(commandId);
  if (entry == nullptr || !IsAvailable(entry->controlName)) {
    return;
  }
  {
    const UndoCommand step(editor_.history(), editor_.view());
    commands_.Run(entry->controlName, *this);
  }
  RefreshMenu();
}

void FrmMain::SetComposing(bool composing) {
  isComposing_ = composing;
  host().loop.EnableAccelerators(!composing);
}

// Before a command is run from the menu: what has been typed so far goes into the text.
void FrmMain::FinishComposition() const {
  if (isComposing_) {
    const HIMC context = ImmGetContext(editor_.box());
    ImmNotifyIME(context, NI_COMPOSITIONSTR, CPS_COMPLETE, 0);
    ImmReleaseContext(editor_.box(), context);
  }
}

bool FrmMain::RunGuarded(const std::function<void()>& action) {
  try {
    action();
    return true;
  } catch (const Interrupted&) {
    return false;
  } catch (const std::exception& error) {
    prompts_.Ask(FailureMessage(error));
    return false;
  }
}

std::optional<LRESULT> FrmMain::OnEditBoxMessage(UINT message, WPARAM wParam, LPARAM) {
  switch (message) {
    case WM_IME_STARTCOMPOSITION:
    case WM_IME_ENDCOMPOSITION:
      SetComposing(message == WM_IME_STARTCOMPOSITION);
      return std::nullopt;
    case WM_KEYDOWN:
      return OnEditBoxKey(wParam) ? std::optional<LRESULT>(0) : std::nullopt;
    case WM_DROPFILES:  // not opened from here, for the document that is opened takes the box away
      PostMessageW(handle(), message, wParam, 0);
      return 0;
    case WM_SETCURSOR:
      return busy_.hasHourglass() ? std::optional<LRESULT>(SendMessageW(handle(), WM_SETCURSOR, wParam, 0))
                                  : std::nullopt;
    default:
      return std::nullopt;
  }
}

// True when the key is no longer the control's.
bool FrmMain::OnEditBoxKey(WPARAM key) {
  const bool shift = IsDown(VK_SHIFT);
  if (isComposing_ || IsDown(VK_MENU)) {
    return false;
  }
  if (!IsDown(VK_CONTROL)) {
    SelectForErasing(key);
    return key == VK_RETURN && shift && BreakLine();
  }
  switch (key) {
    case 'C':
      if (shift) {
        editor_.CopyFormat();
      }
      return shift;
    case 'V':
      if (shift) {
        RunGuarded([this] { editor_.PasteFormat(); });
      }
      return shift;
    case VK_OEM_1:  // ";"
      SetTimer(handle(), shift ? kTypeTime : kTypeDate, kTypingDelay, nullptr);
      return true;
    case 'E':
    case 'J':
    case 'L':
    case 'R':
    case '1':
    case '2':
    case '5':
    case VK_OEM_PLUS:
      return true;  // the control would change paragraphs, and scripts, with these
    case 'A':
    case VK_OEM_COMMA:
    case VK_OEM_PERIOD:
      return shift;  // and capitals and the size of characters with these
    default:
      return false;
  }
}

// The control erases a unit, which of a pair of surrogates would leave one half: then the pair is selected for it.
void FrmMain::SelectForErasing(WPARAM key) {
  if (key == VK_BACK) {
    editor_.SelectPairBeforeCaret();
  } else if (key == VK_DELETE) {
    editor_.SelectPairBehindCaret();
  }
}

// The control would begin a line on the screen that is none of the text.
bool FrmMain::BreakLine() {
  RunGuarded([this] { editor_.ReplaceSelection(u"\r\n"); });
  return true;
}

void FrmMain::OnTimer(UINT_PTR timer) {
  if (timer == kSnapshot) {
    OnSnapshotTimer();
    return;
  }
  if (timer == kCloseWhenIdle) {
    OnIdleTimer();
    return;
  }
  KillTimer(handle(), timer);
  if (!work_.IsBusy() && IsWindowEnabled(handle()) != FALSE) {
    const auto now = clock_.Now();
    RunGuarded([&] { editor_.ReplaceSelection(timer == kTypeDate ? DateText(now) : TimeText(now)); });
  }
}

void FrmMain::LookAtFileSoon(bool isActivated) {
  if (isActivated) {
    PostMessageW(handle(), kLookAtFile, 0, 0);
  }
}

void FrmMain::OnLookAtFile() {
  if (!work_.IsBusy() && IsWindowEnabled(handle()) != FALSE) {
    RunGuarded([this] { documentFile_.LookAtFile(); });
  }
}

void FrmMain::OnSnapshotTimer() {
  recovery_.Work();
  if (!recovery_.IsPending()) {
    KillTimer(handle(), kSnapshot);
  }
}

// Whatever runs the work, a command, a dialog or a start, has come back when the window is free again.
void FrmMain::OnIdleTimer() {
  if (!work_.IsBusy() && IsWindowEnabled(handle()) != FALSE) {
    KillTimer(handle(), kCloseWhenIdle);
    RequestClose();
  }
}

void FrmMain::OnSize(WPARAM kind) {
  if (kind == SIZE_MINIMIZED) {
    // Without an icon to click it could not be had back.
    if (trayIcon_ && trayIcon_->Add(Caption())) {
      ShowWindow(handle(), SW_HIDE);
    }
    return;
  }
  if (trayIcon_) {
    trayIcon_->Remove();
  }
  LayOut();
  // It got the focus while it was minimised still, when no control of it can have it.
  if (GetFocus() == handle()) {
    HandFocusOn();
  }
}

void FrmMain::HandFocusOn() {
  // Disabled, while a command works, the edit box would leave nobody with the focus.
  if (IsWindowEnabled(editor_.box()) != FALSE) {
    SetFocus(editor_.box());
  }
}

void FrmMain::OnTrayClick() {
  if (IsIconic(handle()) != FALSE) {
    ShowWindow(handle(), SW_SHOW);
    ShowWindow(handle(), SW_RESTORE);
    SetForegroundWindow(handle());
  }
}

void FrmMain::OnTrayMenu() {
  constexpr int kRestore = 1;
  const int note = *MenuCommandId("mnuNote");
  const OwnedMenu menu(CreatePopupMenu());
  AppendMenuW(menu.get(), MF_STRING, kRestore, L"&R 还原");
  AppendMenuW(menu.get(), MF_STRING, static_cast<UINT_PTR>(note), ToWide(MenuEntryOf(note)->caption).c_str());
  POINT at{};
  GetCursorPos(&at);
  SetForegroundWindow(handle());  // else the menu would stay when the user clicks elsewhere
  const BOOL chosen = TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_NONOTIFY, at.x, at.y, 0, handle(), nullptr);
  if (chosen == kRestore) {
    OnTrayClick();
  } else if (chosen != 0) {
    OnCommand(chosen, 0);
  }
}

void FrmMain::OnDrop(HDROP drop) {
  const std::vector<std::filesystem::path> paths = TakeDroppedFiles(drop);
  if (!work_.IsBusy()) {
    RunGuarded([this, &paths] { documentFile_.OpenDropped(paths); });
  }
}

void FrmMain::OnClose() {
  if (prompts_.isAsking()) {
    return;  // first the question that stands
  }
  if (work_.IsBusy()) {
    OfferToStopAndClose();
    return;
  }
  if (IsIconic(handle()) == FALSE) {
    RunGuarded([this] { KeepPlacement(); });
  }
  if (MayClose()) {
    recovery_.Forget();
    DestroyWindow(handle());
  }
}

void FrmMain::OfferToStopAndClose() {
  if (std::exchange(isClosingAsked_, true)) {
    return;
  }
  const Answer answer =
      prompts_.Ask({.text = u"正在处理，是否中断并退出？", .buttons = Buttons::kYesNo, .icon = Icon::kQuestion});
  isClosingAsked_ = false;
  if (answer == Answer::kYes) {
    busy_.RequestStop();
    SetTimer(handle(), kCloseWhenIdle, kIdleInterval, nullptr);
  }
}

// The system may end the session whatever the answer, and while the question stands: the snapshot is up to date before,
// and stays until the session really ends with the user's leave.
bool FrmMain::MayEndSession() {
  recovery_.Complete();
  mayEndSession_ = !work_.IsBusy() && MayClose();
  return mayEndSession_;
}

// False when the user calls it off, or when the document could not be saved.
bool FrmMain::MayClose() {
  bool mayClose = false;
  RunGuarded([this, &mayClose] { mayClose = documentFile_.MayClose(); });
  return mayClose;
}

void FrmMain::KeepPlacement() {
  RECT bounds{};
  GetWindowRect(handle(), &bounds);
  SavePlacement(settings_, ToTwips(bounds));
  SavePlacementBeforeMaximising(
      settings_, IsZoomed(handle()) != FALSE ? std::optional(ToTwips(NormalBounds(handle()))) : std::nullopt);
}

void FrmMain::RequestClose() {
  PostMessageW(handle(), WM_CLOSE, 0, 0);
}

void FrmMain::NoteChanged(bool isChanged) {
  if (!isChanged) {
    recovery_.Forget();
    return;
  }
  if (!recovery_.IsPending()) {
    SetTimer(handle(), kSnapshot, kSnapshotInterval, nullptr);
  }
  recovery_.NoteChange();
}

void FrmMain::ShowPath(const std::filesystem::path& path) {
  bars_.SetPath(path);
  const std::u16string caption = path.empty() ? untitledCaption_ : kProgramTitle + (u" " + path.u16string());
  SetWindowTextW(handle(), ToWide(caption).c_str());
}

void FrmMain::LayOut() {
  RECT inner{};
  GetClientRect(handle(), &inner);
  SendMessageW(bars_.statusBar(), WM_SIZE, 0, 0);
  InvalidateRect(bars_.statusBar(), nullptr, TRUE);  // its size grip stands elsewhere now
  const auto dpi = static_cast<int>(GetDpiForWindow(handle()));
  const auto layout = LayOutMainWindow(PixelsToTwips(inner.right, dpi), PixelsToTwips(inner.bottom, dpi));
  if (layout) {
    Place(editor_.box(), layout->editBox, dpi);
    Place(bars_.progressBar(), layout->progressBar, dpi);
  }
}

void FrmMain::RefreshMenu() {
  EnableMenuEntries(GetMenu(handle()), [this](std::string_view controlName) { return IsAvailable(controlName); });
}

void FrmMain::HandleEditorChange() {
  documentFile_.NoteChange();
  bars_.SetRemark({});
  RefreshMenu();
}

void FrmMain::HandleEditorSelection() {
  bars_.SetRemark({});
  RefreshMenu();
}

WorkbenchState FrmMain::State() const {
  return {.hasSelection = !editor_.Selection().empty(),
          .canUndo = editor_.canUndo(),
          .canRedo = editor_.canRedo(),
          .canPaste = editor_.canPaste()};
}

bool FrmMain::IsAvailable(std::string_view controlName) const {
  return commands_.IsAvailable(controlName, State()) && !(editor_.IsReadOnly() && ChangesDocument(controlName));
}

// A message belongs to the window that the user works in, which may be a dialog.
HWND FrmMain::PromptOwner() const {
  const HWND active = GetActiveWindow();
  return active != nullptr ? active : handle();
}

std::u16string FrmMain::Caption() const {
  return WindowText(handle());
}

}  // namespace scrivanta
