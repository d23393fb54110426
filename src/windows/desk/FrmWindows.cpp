#include "windows/desk/FrmWindows.h"

#include "text/win/WideText.h"
#include "windows/desk/FrmWindowsControls.h"

namespace scrivanta {

namespace {

ScreenPoint PointerPlace() {
  POINT pointer{};
  GetCursorPos(&pointer);
  return {pointer.x, pointer.y};
}

}  // namespace

FrmWindows::FrmWindows(WindowHost& host, WindowsDialog& logic) : Dialog(host, IDD_FRM_WINDOWS), logic_(logic) {}

void FrmWindows::OnInit() {
  processes_.Attach(Control(LstProcesses),
                    {{u"名称", 150}, {u"进程号", 60}, {u"内存", 80}, {u"窗口", 45}, {u"路径", 330}});
  constexpr WPARAM kLongestText = 0x7FFFFFFE;
  SendMessageW(Control(TxtWindowText), EM_LIMITTEXT, kLongestText, 0);
  SendMessageW(Control(ImgWindowCross), STM_SETIMAGE, IMAGE_CURSOR,
               reinterpret_cast<LPARAM>(LoadCursorW(nullptr, IDC_CROSS)));
  SetToolTip(TxtWindowFilter, u"标题、类、句柄、进程名、进程号、路径里都有这些词的才列出，不分大小写");
  SetToolTip(ImgWindowCross, u"按住左键拖到窗口或控件上，松开就选中它；按Esc不拖了");
  logic_.Refresh(*this);
}

bool FrmWindows::OnCommand(int controlId, int notification) {
  if (isShowing_) {
    return false;
  }
  if (controlId == TxtWindowFilter && notification == EN_CHANGE) {
    logic_.Show(*this);
    return true;
  }
  if (controlId == ImgWindowCross && notification == STN_CLICKED) {
    TakeCross();
    return true;
  }
  if (controlId == IDCANCEL && isDragging_) {
    ReleaseCapture();
    return true;
  }
  return notification == BN_CLICKED && (OnWindowButton(controlId) || OnListButton(controlId));
}

bool FrmWindows::OnWindowButton(int controlId) {
  switch (controlId) {
    case CmdBringUpWindow:
      logic_.BringUp(*this);
      return true;
    case CmdShowWindow:
    case CmdHideWindow:
      logic_.SetVisible(*this, controlId == CmdShowWindow);
      return true;
    case CmdMoveWindow:
      logic_.Move(*this);
      return true;
    case CmdKeepOnTop:
      logic_.SwitchOnTop(*this);
      return true;
    case CmdCloseWindow:
      logic_.Close(*this);
      return true;
    case CmdSetWindowText:
      logic_.SetText(*this);
      return true;
    case CmdWindowTextToDocument:
      logic_.PutTextIntoDocument(*this);
      return true;
    default:
      return false;
  }
}

bool FrmWindows::OnListButton(int controlId) {
  switch (controlId) {
    case CmdRefreshWindows:
      logic_.Refresh(*this);
      return true;
    case ChkHiddenWindows:
      logic_.Show(*this);
      return true;
    case CmdWindowsToDocument:
      logic_.PutWindowsIntoDocument(*this);
      return true;
    case CmdProcessesToDocument:
      logic_.PutProcessesIntoDocument(*this);
      return true;
    case CmdEndProcess:
      if (const auto row = processes_.Chosen()) {
        logic_.EndProcess(*this, *row);
      } else {
        ShowRemark(u"先在下面的列表里选一个进程");
      }
      return true;
    default:
      return false;
  }
}

std::optional<LRESULT> FrmWindows::OnMessage(UINT message, WPARAM, LPARAM lParam) {
  if (message == WM_NOTIFY) {
    return OnNotify(lParam);
  }
  return isDragging_ && OnDrag(message) ? std::optional<LRESULT>(0) : std::nullopt;
}

std::optional<LRESULT> FrmWindows::OnNotify(LPARAM lParam) {
  const NMHDR& header = *reinterpret_cast<const NMHDR*>(lParam);
  if (header.idFrom == TreeWindows && header.code == TVN_SELCHANGEDW && !isShowing_) {
    const TVITEMW& item = reinterpret_cast<const NMTREEVIEWW&>(header).itemNew;
    logic_.Choose(*this, static_cast<std::size_t>(item.lParam));
    return 0;
  }
  return processes_.OnNotify(lParam) ? std::optional<LRESULT>(0) : std::nullopt;
}

void FrmWindows::TakeCross() {
  isDragging_ = true;
  SetCapture(handle());
  SetCursor(LoadCursorW(nullptr, IDC_CROSS));
}

bool FrmWindows::OnDrag(UINT message) {
  switch (message) {
    case WM_MOUSEMOVE:
      logic_.Tell(*this, PointerPlace());
      return true;
    case WM_LBUTTONUP:
      isDragging_ = false;
      ReleaseCapture();
      logic_.ChooseAt(*this, PointerPlace());
      return true;
    case WM_CAPTURECHANGED:
      isDragging_ = false;
      ShowRemark(u"");
      return true;
    default:
      return false;
  }
}

std::u16string FrmWindows::Filter() const {
  return ControlText(TxtWindowFilter);
}

void FrmWindows::SetFilter(const std::u16string& filter) {
  isShowing_ = true;
  SetControlText(TxtWindowFilter, filter);
  isShowing_ = false;
}

bool FrmWindows::WithHidden() const {
  return IsChecked(ChkHiddenWindows);
}

void FrmWindows::SetWithHidden(bool withHidden) {
  SetChecked(ChkHiddenWindows, withHidden);
}

void FrmWindows::ShowWindows(const std::vector<WindowRow>& rows) {
  isShowing_ = true;
  SendMessageW(Control(TreeWindows), WM_SETREDRAW, FALSE, 0);
  Tree(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
  items_.clear();
  std::vector<HTREEITEM> above;  // of each depth the last one
  for (std::size_t row = 0; row < rows.size(); ++row) {
    above.resize(rows[row].depth);
    std::wstring text = ToWide(rows[row].text);
    TVINSERTSTRUCTW insert{};
    insert.hParent = above.empty() ? TVI_ROOT : above.back();
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT | TVIF_PARAM | TVIF_STATE;
    insert.item.pszText = text.data();
    insert.item.lParam = static_cast<LPARAM>(row);
    insert.item.stateMask = TVIS_EXPANDED;
    insert.item.state = rows[row].isOpen ? TVIS_EXPANDED : 0U;
    items_.push_back(reinterpret_cast<HTREEITEM>(Tree(TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert))));
    above.push_back(items_.back());
  }
  SendMessageW(Control(TreeWindows), WM_SETREDRAW, TRUE, 0);
  InvalidateRect(Control(TreeWindows), nullptr, TRUE);
  isShowing_ = false;
}

void FrmWindows::ShowProcesses(const std::vector<ProcessRow>& rows) {
  std::vector<ReportRow> shown;
  for (const ProcessRow& row : rows) {
    shown.push_back({row.name, row.id, row.memory, row.windows, row.path});
  }
  processes_.Show(std::move(shown));
}

void FrmWindows::ChooseWindow(std::size_t row) {
  isShowing_ = true;
  Tree(TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(items_.at(row)));
  Tree(TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(items_.at(row)));
  Tree(WM_HSCROLL, SB_LEFT, 0);  // a long caption is seen from its beginning
  isShowing_ = false;
}

void FrmWindows::ShowDetails(const std::u16string& text) {
  SetControlText(TxtWindowDetails, text);
}

std::u16string FrmWindows::Text() const {
  return ControlText(TxtWindowText);
}

void FrmWindows::ShowText(const std::u16string& text) {
  SetControlText(TxtWindowText, text);
}

void FrmWindows::ShowRemark(const std::u16string& text) {
  SetControlText(LblWindowsRemark, text);
}

LRESULT FrmWindows::Tree(UINT message, WPARAM wParam, LPARAM lParam) const {
  return SendMessageW(Control(TreeWindows), message, wParam, lParam);
}

}  // namespace scrivanta
