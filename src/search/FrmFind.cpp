#include "search/FrmFind.h"

#include <windows.h>

#include <ole2.h>
#include <shellapi.h>

#include "search/FrmFindControls.h"
#include "search/FrmReplacePreview.h"
#include "search/ScrivantaComboBox.h"
#include "text/win/WideText.h"
#include "win/BoxMenu.h"
#include "win/DroppedFiles.h"
#include "win/Monitors.h"
#include "win/Registry.h"

namespace scrivanta {

namespace {

// Tells the registry editor where to open.
void PointRegistryEditorAt(const std::u16string& key) {
  WriteRegistryText(u"Software\\Microsoft\\Windows\\CurrentVersion\\Applets\\Regedit", u"LastKey", key);
}

// A dialog over the find window disables that one alone: commands could still be given in the main window.
class DisabledWindow {
 public:
  explicit DisabledWindow(HWND window) : window_(window) { EnableWindow(window_, FALSE); }
  DisabledWindow(const DisabledWindow&) = delete;
  DisabledWindow& operator=(const DisabledWindow&) = delete;
  ~DisabledWindow() { EnableWindow(window_, TRUE); }

 private:
  HWND window_;
};

}  // namespace

FrmFind::FrmFind(WindowHost& host, Workbench& workbench, FindState& state)
    : Dialog(host, IDD_FRM_FIND), logic_(workbench, state) {}

FrmFind::~FrmFind() = default;

void FrmFind::Show(HWND owner, FindDialogFocus focus) {
  const bool wasOpen = IsOpen();
  ShowModeless(owner);
  if (wasOpen) {
    logic_.Reopen(*this);
  }
  FocusOn(focus == FindDialogFocus::kReplacement ? Combo2 : Combo1);
}

void FrmFind::OnInit() {
  SetTopMost(true);
  DragByBody();
  SetTips();
  for (int controlId = Combo1; controlId <= ChkInSelection; ++controlId) {
    HookKeys(controlId, [this, controlId](WPARAM key) { return OnKey(controlId, key); });
  }
  SetUpDropBox();
  logic_.Open(*this);
  FocusOn(Combo1);
}

void FrmFind::SetUpDropBox() {
  const HWND box = Control(RichTextBox1);
  // The control would put a dropped file into its text.
  RevokeDragDrop(box);
  DragAcceptFiles(box, TRUE);
  DragAcceptFiles(handle(), TRUE);
  dropBox_ = std::make_unique<Subclass>(
      host(), box, [this, box](UINT message, WPARAM wParam, LPARAM lParam) -> std::optional<LRESULT> {
        switch (message) {
          case WM_DROPFILES:
            TakeDrop(reinterpret_cast<HDROP>(wParam));
            return 0;
          case WM_GETDLGCODE:
            // Tab, Enter and Esc are the dialog's.
            return DLGC_WANTARROWS | DLGC_WANTCHARS;
          default:
            return AnswerWithBoxMenu(box, message, lParam);
        }
      });
}

std::optional<LRESULT> FrmFind::OnMessage(UINT message, WPARAM wParam, LPARAM) {
  if (message != WM_DROPFILES) {
    return std::nullopt;
  }
  TakeDrop(reinterpret_cast<HDROP>(wParam));
  return 0;
}

void FrmFind::SetTips() {
  constexpr char16_t kHistoryTip[] = u"F1注册表或INI文件中的清单；F2将条目过滤到前面，方便选择";
  SetToolTip(Combo1, kHistoryTip);
  SetToolTip(ChkIncludeFormat, u"【全部替换】保留源格式查找，如果有而不能被替换就取消勾选");
  SetToolTip(ChkInSelection, u"查找、替换只在勾选时选中的几行中进行");
  SetToolTip(CmdFilter, u"将含关键字行移到文首，正则表达式方式要标记全，结尾如：.*$");
  SetToolTip(CmdSearchInFile, u"分开列出【含有】和【不含有】查找内容的文件");
  SetToolTip(CmdReplaceInFile, u"在列出的文件行中替换，不可逆转！！");
}

bool FrmFind::OnCommand(int controlId, int notification) {
  if (controlId == IDOK) {
    Press(CmdFindNext);
    return true;
  }
  if (notification != BN_CLICKED) {
    return false;
  }
  switch (controlId) {
    case CmdClose:
      Close();
      return true;
    case Option1:
    case Option2:
    case ChkCapitalCheck:
    case ChkRegExpSearch:
      logic_.TakeOptions(*this);
      return true;
    case ChkInSelection:
      logic_.TakePart(*this);
      return true;
    case CmdFindNext:
    case CmdFindAll:
    case CmdReplace:
    case CmdReplaceAll:
    case CmdFilter:
    case CmdSearchInFile:
    case CmdReplaceInFile:
      Press(controlId);
      return true;
    default:
      return false;
  }
}

void FrmFind::Press(int controlId) {
  switch (controlId) {
    case CmdFindNext:
      logic_.FindNext(*this);
      break;
    case CmdFindAll:
      logic_.FindAll(*this);
      break;
    case CmdReplace:
      logic_.Replace(*this);
      break;
    case CmdReplaceAll:
      logic_.ReplaceAll(*this);
      break;
    case CmdFilter:
      logic_.Filter(*this);
      break;
    case CmdSearchInFile:
      logic_.SearchInFiles(*this);
      break;
    default:
      logic_.ReplaceInFiles(*this);
      break;
  }
}

bool FrmFind::OnKey(int controlId, WPARAM key) {
  const bool inHistory = controlId == Combo1 || controlId == Combo2;
  switch (key) {
    case VK_F1:
      if (inHistory) {
        logic_.ShowStoredHistories(PointRegistryEditorAt);
      }
      return inHistory;
    case VK_F2:
      if (controlId == Combo1) {
        logic_.FilterFindHistory(*this);
      } else if (controlId == Combo2) {
        logic_.FilterReplaceHistory(*this);
      }
      return inHistory;
    case VK_F3:
      if (GetKeyState(VK_SHIFT) < 0) {
        logic_.FindPrevious(*this);
      } else {
        logic_.FindNext(*this);
      }
      return true;
    default:
      return false;
  }
}

void FrmFind::TakeDrop(HDROP drop) {
  const std::vector<std::filesystem::path> paths = TakeDroppedFiles(drop);
  // The keys as they are: those of the drag went to the window that it came from.
  logic_.Drop(*this, paths, GetAsyncKeyState(VK_MENU) < 0);
}

void FrmFind::OnClose() {
  dropBox_.reset();
  logic_.Close(*this);
}

std::u16string FrmFind::FindBox() const {
  return ControlText(Combo1);
}

std::u16string FrmFind::ReplaceBox() const {
  return ControlText(Combo2);
}

void FrmFind::SetFindBox(const std::u16string& text, const std::vector<std::u16string>& list) {
  FillComboBox(Control(Combo1), text, list);
}

void FrmFind::SetReplaceBox(const std::u16string& text, const std::vector<std::u16string>& list) {
  FillComboBox(Control(Combo2), text, list);
}

bool FrmFind::SearchesUp() const {
  return IsChecked(Option1);
}

bool FrmFind::MatchesCase() const {
  return IsChecked(ChkCapitalCheck);
}

bool FrmFind::IsRegExp() const {
  return IsChecked(ChkRegExpSearch);
}

bool FrmFind::KeepsFormatting() const {
  return IsChecked(ChkIncludeFormat);
}

bool FrmFind::IsInPart() const {
  return IsChecked(ChkInSelection);
}

void FrmFind::SetInPart(bool isInPart) {
  SetChecked(ChkInSelection, isInPart);
}

void FrmFind::SetOptions(bool searchesUp, bool matchesCase, bool isRegExp) {
  SetChecked(Option1, searchesUp);
  SetChecked(Option2, !searchesUp);
  SetChecked(ChkCapitalCheck, matchesCase);
  SetChecked(ChkRegExpSearch, isRegExp);
}

std::u16string FrmFind::DropBox() const {
  return ControlText(RichTextBox1);
}

void FrmFind::SetDropBox(const std::u16string& text) {
  SetControlText(RichTextBox1, text);
}

void FrmFind::SetReplaceTip(const std::u16string& tip) {
  SetToolTip(Combo2, tip);
}

void FrmFind::ShowPreview(ReplacePreview& preview) {
  FrmReplacePreview window(host(), preview);
  const DisabledWindow mainWindow(GetWindow(handle(), GW_OWNER));
  window.ShowModal(handle());
}

DialogPlace FrmFind::Place() const {
  const POINT corner = CornerInTwips();
  return {corner.x, corner.y};
}

void FrmFind::SetPlace(const DialogPlace& place) {
  MoveToTwips({place.left, place.top});
}

void FrmFind::MoveOff(const ScreenRect& place) {
  const auto rectOf = [](const RECT& rect) { return ScreenRect{rect.left, rect.top, rect.right, rect.bottom}; };
  RECT window{};
  GetWindowRect(handle(), &window);
  const ScreenRect moved = MovedOff(rectOf(window), place, rectOf(WorkAreaOf(window)));
  if (moved != rectOf(window)) {
    SetWindowPos(handle(), nullptr, moved.left, moved.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
}

}  // namespace scrivanta
