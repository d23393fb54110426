#include "calendar/FrmCalendar.h"

#include <array>

#include "calendar/FrmCalendarControls.h"
#include "text/ExplainedError.h"
#include "win/BoxMenu.h"
#include "win/Keys.h"

namespace scrivanta {

namespace {

struct Step {
  int key;  // a virtual key, or a button
  CalendarUnit unit;
  int number;
};

// In the page; with Ctrl the page keys turn years.
constexpr std::array kKeys = {Step{VK_LEFT, CalendarUnit::kDay, -1}, Step{VK_RIGHT, CalendarUnit::kDay, 1},
                              Step{VK_UP, CalendarUnit::kDay, -7}, Step{VK_DOWN, CalendarUnit::kDay, 7}};
constexpr std::array kButtons = {
    Step{CmdYearBack, CalendarUnit::kYear, -1}, Step{CmdMonthBack, CalendarUnit::kMonth, -1},
    Step{CmdMonthForward, CalendarUnit::kMonth, 1}, Step{CmdYearForward, CalendarUnit::kYear, 1}};

template <std::size_t Count>
const Step* Find(const std::array<Step, Count>& steps, int key) {
  for (const Step& step : steps) {
    if (step.key == key) {
      return &step;
    }
  }
  return nullptr;
}

}  // namespace

FrmCalendar::FrmCalendar(const SubsystemHost& subsystemHost, Workbench& workbench)
    : Dialog(subsystemHost.windows, IDD_FRM_CALENDAR),
      services_(subsystemHost.services),
      workbench_(workbench),
      logic_(workbench) {}

void FrmCalendar::OnInit() {
  MakePage();
  shownName_.clear();
  CentreOverOwner();
  logic_.Open(*this);
  FocusOn(RichCalendar);
}

// In the place of FrmPage: a template can have no control whose library may not be loaded yet.
void FrmCalendar::MakePage() {
  const HWND frame = Control(FrmPage);
  RECT bounds{};
  GetWindowRect(frame, &bounds);
  MapWindowPoints(nullptr, handle(), reinterpret_cast<POINT*>(&bounds), 2);
  page_.Create(handle(), RichCalendar, WS_VISIBLE | WS_TABSTOP | WS_BORDER | WS_VSCROLL | ES_MULTILINE | ES_READONLY);
  // Behind the frame in the order of the tabs.
  SetWindowPos(page_.handle(), frame, bounds.left, bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top,
               SWP_NOACTIVATE);
  ShowWindow(frame, SW_HIDE);
  pageKeys_ = std::make_unique<Subclass>(host(), page_.handle(), [this](UINT message, WPARAM wParam, LPARAM lParam) {
    return OnPageMessage(message, wParam, lParam);
  });
}

std::optional<LRESULT> FrmCalendar::OnPageMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_KEYDOWN:
      return OnPageKey(wParam) ? std::optional<LRESULT>(0) : std::nullopt;
    case WM_LBUTTONUP:
      // The control has moved the caret when the button went down.
      logic_.ChooseAt(*this, static_cast<std::size_t>(page_.Selection().cpMin));
      return std::nullopt;
    case WM_GETDLGCODE:
      // Tab, Enter and Esc are the dialog's.
      return DLGC_WANTARROWS;
    default:
      return AnswerWithBoxMenu(page_.handle(), message, lParam);
  }
}

bool FrmCalendar::OnPageKey(WPARAM key) {
  if (const Step* step = Find(kKeys, static_cast<int>(key))) {
    logic_.Move(*this, step->unit, step->number);
    return true;
  }
  const CalendarUnit unit = IsKeyDown(VK_CONTROL) ? CalendarUnit::kYear : CalendarUnit::kMonth;
  switch (key) {
    case VK_PRIOR:
      logic_.Move(*this, unit, -1);
      return true;
    case VK_NEXT:
      logic_.Move(*this, unit, 1);
      return true;
    case VK_HOME:
      logic_.GoToToday(*this);
      return true;
    default:
      return false;
  }
}

bool FrmCalendar::OnCommand(int controlId, int notification) {
  if (controlId == IDOK) {
    // Enter in a box is its button.
    const HWND focus = GetFocus();
    const bool isLunar = focus == Control(TxtLunarDate);
    return Press(isLunar                     ? CmdGoToLunar
                 : focus == Control(TxtDays) ? CmdAddDays
                 : focus == Control(TxtTo)   ? CmdDistance
                                             : CmdGoTo);
  }
  return notification == BN_CLICKED && (Turn(controlId) || Press(controlId));
}

bool FrmCalendar::Turn(int controlId) {
  if (const Step* step = Find(kButtons, controlId)) {
    logic_.Move(*this, step->unit, step->number);
    return true;
  }
  switch (controlId) {
    case CmdToday:
      logic_.GoToToday(*this);
      return true;
    case OptMonth:
    case OptYear:
    case ChkMonday:
      logic_.TakeOptions(*this);
      return true;
    default:
      return false;
  }
}

bool FrmCalendar::Press(int controlId) {
  switch (controlId) {
    case CmdGoTo:
      logic_.GoToDate(*this);
      return true;
    case CmdGoToLunar:
      logic_.GoToLunarDate(*this);
      return true;
    case CmdDistance:
      logic_.Measure(*this);
      return true;
    case CmdAddDays:
      logic_.AddDays(*this);
      return true;
    case CmdInsert:
      logic_.Insert(*this);
      return true;
    case CmdPrint:
      logic_.Print(*this);
      return true;
    case CmdSave:
      logic_.Save(*this);
      return true;
    case CmdCloseCalendar:
      Close();
      return true;
    default:
      return false;
  }
}

void FrmCalendar::OnClose() {
  logic_.Close(*this);
  pageKeys_.reset();
}

void FrmCalendar::ShowPage(const CalendarPage& page) {
  const POINT scroll = page_.ScrollPosition();
  {
    const QuietRichEdit quiet(page_);
    page_.Send(WM_SETTEXT, 0, 0);
    NoProgress progress;
    page_.LoadRtf(page.rtf, progress);
    // The same page with another mark stays where it was scrolled.
    page_.SetScrollPosition(page.name == shownName_ ? scroll : POINT{});
  }
  InvalidateRect(page_.handle(), nullptr, TRUE);
  shownName_ = page.name;
}

void FrmCalendar::ShowDetails(const std::u16string& text) {
  SetControlText(TxtDetails, text);
}

void FrmCalendar::SetDates(const std::u16string& date, const std::u16string& lunarDate) {
  SetControlText(TxtDate, date);
  SetControlText(TxtLunarDate, lunarDate);
}

std::u16string FrmCalendar::DateBox() const {
  return ControlText(TxtDate);
}

std::u16string FrmCalendar::LunarDateBox() const {
  return ControlText(TxtLunarDate);
}

std::u16string FrmCalendar::FromBox() const {
  return ControlText(TxtFrom);
}

std::u16string FrmCalendar::ToBox() const {
  return ControlText(TxtTo);
}

std::u16string FrmCalendar::DaysBox() const {
  return ControlText(TxtDays);
}

void FrmCalendar::SetFromBox(const std::u16string& text) {
  SetControlText(TxtFrom, text);
}

void FrmCalendar::SetToBox(const std::u16string& text) {
  SetControlText(TxtTo, text);
}

void FrmCalendar::SetDistance(const std::u16string& text) {
  SetControlText(LabDistance, text);
}

bool FrmCalendar::ShowsYear() const {
  return IsChecked(OptYear);
}

bool FrmCalendar::BeginsWithMonday() const {
  return IsChecked(ChkMonday);
}

void FrmCalendar::SetOptions(bool showsYear, bool beginsWithMonday) {
  SetChecked(OptYear, showsYear);
  SetChecked(OptMonth, !showsYear);
  SetChecked(ChkMonday, beginsWithMonday);
}

DialogPlace FrmCalendar::Place() const {
  const POINT corner = CornerInTwips();
  return {corner.x, corner.y};
}

void FrmCalendar::SetPlace(const DialogPlace& place) {
  MoveToTwips({place.left, place.top});
}

void FrmCalendar::Print(const CalendarPage& page) {
  if (!services_.printRichEdit) {
    throw ExplainedError("nothing prints here", u"本程序不能打印！");
  }
  services_.printRichEdit(
      workbench_, {.owner = handle(), .richEdit = page_.handle(), .name = page.name + u"日历", .text = page.text});
}

}  // namespace scrivanta
