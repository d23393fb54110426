#include "shell/window/FrmMain.h"

#include <commctrl.h>
#include <shellapi.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "shell/window/CommandLine.h"
#include "shell/window/CommandReasons.h"
#include "shell/window/FrmMainControls.h"
#include "shell/window/FrmMainMenu.h"
#include "shell/window/FrmMainTimers.h"
#include "shell/window/InstanceNumber.h"
#include "shell/window/MainLayout.h"
#include "shell/window/MenuTree.h"
#include "shell/window/Options.h"
#include "shell/window/View.h"
#include "shell/window/WindowPlacement.h"
#include "shell/workbench/FailureMessage.h"
#include "text/PlatformFile.h"
#include "text/Twips.h"
#include "text/win/WideText.h"
#include "win/Colours.h"
#include "win/DarkSystem.h"
#include "win/DroppedFiles.h"
#include "win/Monitors.h"
#include "win/TopLevelWindows.h"

namespace scrivanta {

namespace {

constexpr UINT kSnapshotInterval = 100;  // milliseconds
constexpr char16_t kFormatsLost[] = u"格式没有保留（有图片或表格等），可以撤消";
// Posted by the window to itself: a question must not stand in the midst of an activation.
constexpr UINT kLookAtFile = WM_APP;
// The same when the edit box has been drawn.
constexpr UINT kBoxIsDrawn = WM_APP + 1;

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
      editor_({[this] { HandleEditorChange(); }, [this] { HandleEditorSelection(); }, [this] { HandleLostFormats(); }},
              {[this] { return StartWork(); }, [this] { TakeUpEditBox(); }}),
      keys_(
          host, editor_, clock_, [this](const std::function<void()>& action) { RunGuarded(action); },
          [this] { return TakeEnter(); }),
      tray_([this](int commandId) { OnCommand(commandId, 0); }),
      busy_(host, bars_) {}

void FrmMain::Open(std::u16string_view commandLine) {
  const DocumentArgument argument = DocumentOf(commandLine);
  const Options options = ReadOptions(settings_);
  const std::filesystem::path documentPath = commandLine.empty() ? options.defaultFile : PathOfText(argument.path);
  untitledCaption_ = NumberedCaption(kProgramTitle, TopLevelWindowTitles());
  SetColours(options.colours);
  Create(windowClass_, ToWide(untitledCaption_), WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, {0, 0, 0, 0});
  menuBar_.Create(handle());
  tray_.Create(handle(), icon_);
  const int show = RestoreSettings(options);
  RefreshState();
  ShowWindow(handle(), show);
  SetFocus(editor_.box());
  UpdateWindow(handle());
  if (!documentPath.empty()) {
    RunGuarded([this, documentPath, line = argument.line] {
      if (!recovery_.Restore(documentPath)) {
        documentFile_.Load(documentPath);
      }
      documentFile_.GoToLine(line);
    });
  }
  RunGuarded([this] { recovery_.OfferLeftBehind(); });
}

int FrmMain::RestoreSettings(const Options& options) {
  lineNumbers_.Show(ReadLineNumbers(settings_));  // before the window is laid out, when it gets its size
  std::vector<TwipRect> areas;
  std::ranges::transform(WorkAreas(), std::back_inserter(areas), &ToTwips);
  const std::optional<TwipRect> normal = ReadPlacementBeforeMaximising(settings_);
  const TwipRect placement = normal ? *normal : ReadPlacement(settings_);
  Place(handle(), FitPlacement(placement, areas), SystemDotsPerInch());
  editor_.SetWordWrap(options.wraps);
  editor_.SetZoom(ReadZoom(settings_));
  return normal ? SW_SHOWMAXIMIZED : SW_SHOW;
}

LRESULT FrmMain::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == taskbarCreated_ && IsIconic(handle()) != FALSE) {
    tray_.RenewIcon();
    return 0;
  }
  switch (message) {
    case WM_COMMAND:
      OnCommand(LOWORD(wParam), HIWORD(wParam));
      return 0;
    case WM_NOTIFY:
      OnNotify(*reinterpret_cast<const NMHDR*>(lParam));
      return 0;
    case FrmMainTray::kMessage:
      tray_.HandleEvent(lParam);
      return 0;
    case WM_DROPFILES:
      OnDrop(reinterpret_cast<HDROP>(wParam));
      return 0;
    case WM_TIMER:
      OnTimer(wParam);
      return 0;
    case WM_CLOSE:
      closing_.Close(handle());
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
      OnSettingChange();
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
    case kBoxIsDrawn:
      if (lineNumbers_.Follow(editor_.box(), editor_.breaks())) {
        LayOut();
      }
      return 0;
    case WM_DRAWITEM:
      lineNumbers_.Draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam), editor_.box(), editor_.breaks(),
                        host().colours);
      return TRUE;
    case WM_QUERYENDSESSION:  // the user logs off
      return closing_.MayEndSession() ? TRUE : FALSE;
    case WM_ENDSESSION:
      closing_.HandleSessionEnd(wParam != FALSE);
      return 0;
    case WM_INITMENUPOPUP:
      menuBar_.HandleOpening(reinterpret_cast<HMENU>(wParam));
      return 0;
    case WM_MENUSELECT:
      bars_.SetHint(menuBar_.HintOf(wParam));
      return 0;
    case WM_DESTROY:
      tray_.Destroy();
      PostQuitMessage(0);
      return 0;
    default:
      return std::nullopt;
  }
}

void FrmMain::MakeControls() {
  bars_.Create(handle());
  editor_.Create(handle());
  lineNumbers_.Create(handle());
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
  editBoxMessages_.emplace(host(), editor_.box(), [this](UINT message, WPARAM wParam, LPARAM lParam) {
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

void FrmMain::OnSettingChange() {
  SetColours(ReadOptions(settings_).colours);
  RefreshLook(GetDpiForWindow(handle()));
}

void FrmMain::SetColours(ColourChoice choice) {
  const bool isDark = IsDark(choice, {.isDark = IsSystemDark(), .isHighContrast = IsHighContrast()});
  if (isDark == host().colours.isDark()) {
    return;
  }
  host().colours.SetDark(isDark);
  if (editor_.box() != nullptr) {
    TakeUpEditBox();
  }
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
    keys_.FinishComposition();
    if (menuBar_.IsRecent(id)) {
      RunGuarded([&] { menuBar_.RunRecent(id); });
    } else if (!keys_.isComposing()) {
      RunCommand(id);
    }
  }
}

void FrmMain::OnNotify(const NMHDR& notification) {
  if (notification.code == EN_SELCHANGE) {
    editor_.HandleSelection();
  } else if (notification.idFrom == StatusBar1 && notification.code == NM_CLICK && !work_.IsBusy()) {
    // The description of a click on the bar, which begins with its head.
    OnStatusClick(reinterpret_cast<const NMMOUSE&>(notification).dwItemSpec);
  }
}

void FrmMain::OnStatusClick(std::size_t part) {
  const std::optional<StatusPanel> panel = FrmMainBars::PanelOf(part);
  if (panel == StatusPanel::kPlace) {
    OnCommand(*MenuCommandId("mnuGotoLine"), 0);
  } else if (panel == StatusPanel::kEncoding) {
    OpenEncodingMenu();
  } else if (panel == StatusPanel::kLineEnds) {
    OpenLineEndsMenu();
  }
}

void FrmMain::OpenPanelMenu(StatusPanel panel, const std::vector<MenuChoice>& choices) {
  const RECT bounds = bars_.BoundsOf(panel);
  RunGuarded([&] { OpenChoices(handle(), {bounds.left, bounds.top}, choices); });
}

void FrmMain::SetLineNumbers(bool shown) {
  lineNumbers_.Show(shown);
  LayOut();
}

void FrmMain::RunCommand(int commandId) {
  const MenuEntry* entry = MenuEntryOf(commandId);
  if (entry == nullptr || !CanRun(commands_, entry->controlName, State())) {
    return;
  }
  bars_.SetRemark({});
  {
    const UndoCommand step(editor_.history(), editor_.view());
    commands_.Run(entry->controlName, *this);
  }
  RunGuarded([&] { menuBar_.NoteCommand(entry->controlName); });
  RefreshState();
}

// The command is run from the loop, for it may take the box away whose key this is.
bool FrmMain::TakeEnter() {
  const FrmMainEditor::LinesAtCaret lines = editor_.TwoLinesAtCaret();
  const auto meant = editor_.HasSelection() ? std::nullopt : commands_.MeantByEnter(lines.text, lines.caret);
  if (!meant) {
    return false;
  }
  PostMessageW(handle(), WM_COMMAND, static_cast<WPARAM>(*MenuCommandId(*meant)), 0);
  return true;
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

std::optional<LRESULT> FrmMain::OnEditBoxMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_RBUTTONUP:  // not every control makes of it what the next is
      SendMessageW(editor_.box(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(editor_.box()), GetMessagePos());
      return 0;
    case WM_CONTEXTMENU:
      if (!work_.IsBusy()) {
        RunGuarded([&] { menuBar_.OpenInEditBox(editor_.box(), lParam); });
      }
      return 0;
    case WM_MOUSEWHEEL:
      if ((GET_KEYSTATE_WPARAM(wParam) & MK_CONTROL) == 0) {
        return std::nullopt;
      }
      OnCommand(*MenuCommandId(GET_WHEEL_DELTA_WPARAM(wParam) > 0 ? "mnuZoomIn" : "mnuZoomOut"), 0);
      return 0;
    case WM_PAINT:
      PostMessageW(handle(), kBoxIsDrawn, 0, 0);
      return std::nullopt;
    case WM_DROPFILES:  // not opened from here, for the document that is opened takes the box away
      PostMessageW(handle(), message, wParam, 0);
      return 0;
    case WM_SETCURSOR:
      return busy_.hasHourglass() ? std::optional<LRESULT>(SendMessageW(handle(), WM_SETCURSOR, wParam, 0))
                                  : std::nullopt;
    default:
      return keys_.HandleMessage(message, wParam);
  }
}

void FrmMain::OnTimer(UINT_PTR timer) {
  if (timer == kSnapshot) {
    OnSnapshotTimer();
    return;
  }
  if (timer == kCloseWhenIdle) {
    closing_.HandleTimer(handle());
    return;
  }
  KillTimer(handle(), timer);
  if (!work_.IsBusy() && IsWindowEnabled(handle()) != FALSE) {
    keys_.TypeMoment(timer);
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

void FrmMain::OnSize(WPARAM kind) {
  if (kind == SIZE_MINIMIZED) {
    tray_.HoldMinimised();
    return;
  }
  tray_.Release();
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

void FrmMain::OnDrop(HDROP drop) {
  const std::vector<std::filesystem::path> paths = TakeDroppedFiles(drop);
  if (!work_.IsBusy() && !prompts_.isAsking()) {
    RunGuarded([this, &paths] { documentFile_.OpenDropped(paths); });
  }
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
  RefreshPanels();
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

void FrmMain::NoteUse(const std::filesystem::path& path) {
  desktop_.NoteRecentDocument(path);
  RunGuarded([&] { menuBar_.NoteDocument(path); });
}

void FrmMain::LayOut() {
  RECT inner{};
  GetClientRect(handle(), &inner);
  SendMessageW(bars_.statusBar(), WM_SIZE, 0, 0);
  bars_.LayOut();
  InvalidateRect(bars_.statusBar(), nullptr, TRUE);  // its size grip stands elsewhere now
  const auto dpi = static_cast<int>(GetDpiForWindow(handle()));
  const auto layout = LayOutMainWindow(PixelsToTwips(inner.right, dpi), PixelsToTwips(inner.bottom, dpi));
  if (layout) {
    const int numbers = PixelsToTwips(lineNumbers_.Width(editor_.box(), editor_.breaks()), dpi);
    const auto& [left, top, width, height] = layout->editBox;
    Place(lineNumbers_.window(), {0, top, numbers, height}, dpi);
    Place(editor_.box(), {left + numbers, top, width - numbers, height}, dpi);
    Place(bars_.progressBar(), layout->progressBar, dpi);
  }
}

void FrmMain::RefreshPanels() {
  bars_.SetPanels(panels_.Describe(editor_.breaks(), editor_.ControlSelection(), documentFile_));
}

// The caret moves all the time, and as a rule what can be done stays the same.
void FrmMain::RefreshState() {
  menuBar_.Follow();
  RefreshPanels();
}

void FrmMain::HandleEditorChange() {
  documentFile_.NoteChange();
  areFormatsLost_ = false;
  bars_.DropPassingRemark();
  RefreshState();
}

void FrmMain::HandleEditorSelection() {
  areFormatsLost_ = false;
  bars_.DropPassingRemark();
  RefreshState();
}

void FrmMain::HandleLostFormats() {
  areFormatsLost_ = true;
  bars_.SetRemark(kFormatsLost);
}

void FrmMain::ShowStatus(const std::u16string& text) {
  bars_.SetRemark(areFormatsLost_ ? text + u"，" + kFormatsLost : text);
}

WorkbenchState FrmMain::State() const {
  return {.hasSelection = !editor_.Selection().empty(),
          .canUndo = editor_.canUndo(),
          .canRedo = editor_.canRedo(),
          .canPaste = editor_.canPaste(),
          .isReadOnly = editor_.IsReadOnly()};
}

// A message belongs to the window that the user works in, which may be a dialog.
HWND FrmMain::PromptOwner() const {
  const HWND active = GetActiveWindow();
  return active != nullptr ? active : handle();
}

}  // namespace scrivanta
