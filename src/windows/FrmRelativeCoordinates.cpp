#include "windows/FrmRelativeCoordinates.h"

#include <array>

#include "text/win/WideText.h"
#include "windows/FrmRelativeCoordinatesControls.h"

namespace scrivanta {

namespace {

// The first leaves it to the commands; the others are in the order of ScriptDialect.
constexpr std::array<const wchar_t*, kDialectNames.size() + 1> kDialects = {
    L"由命令自动识别", L"MouseClick(\"left\", x, y)", L"Click, x, y", L"Click x, y", L"MoveTo x, y", L"只有坐标：x, y"};
// In the order of CoordinateBase.
constexpr std::array kBases = {OptBaseWindow, OptBaseFirst, OptBasePrevious, OptBasePoint};

void AddItem(HWND box, const wchar_t* text) {
  SendMessageW(box, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
}

}  // namespace

FrmRelativeCoordinates::FrmRelativeCoordinates(WindowHost& host, CoordinatesDialog& logic)
    : Dialog(host, IDD_FRM_RELATIVE_COORDINATES), logic_(logic) {}

void FrmRelativeCoordinates::OnInit() {
  for (const wchar_t* name : kDialects) {
    AddItem(Control(CboDialect), name);
  }
  SendMessageW(Control(CboDialect), CB_SETCURSEL, 0, 0);
  for (const std::u16string& caption : logic_.Captions()) {
    AddItem(Control(CboCaption), ToWide(caption).c_str());
  }
  SetChecked(OptBaseWindow, true);
}

bool FrmRelativeCoordinates::OnCommand(int controlId, int notification) {
  if (controlId == CmdConvert || controlId == IDOK) {
    logic_.Convert(*this);
    return true;
  }
  // Who types into a box means the choice that it belongs to.
  const bool typesPoint = (controlId == TxtOriginX || controlId == TxtOriginY) && notification == EN_CHANGE;
  if (typesPoint) {
    CheckRadioButton(handle(), OptBaseWindow, OptBasePoint, OptBasePoint);
  }
  return false;
}

CoordinatesForm FrmRelativeCoordinates::Form() const {
  CoordinatesForm form;
  const LRESULT dialect = SendMessageW(Control(CboDialect), CB_GETCURSEL, 0, 0);
  if (dialect > 0) {
    form.dialect = static_cast<ScriptDialect>(dialect - 1);
  }
  for (std::size_t index = 0; index < kBases.size(); ++index) {
    if (IsChecked(kBases[index])) {
      form.base = static_cast<CoordinateBase>(index);
    }
  }
  form.caption = ControlText(CboCaption);
  form.x = ControlText(TxtOriginX);
  form.y = ControlText(TxtOriginY);
  return form;
}

}  // namespace scrivanta
