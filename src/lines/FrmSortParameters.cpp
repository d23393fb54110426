#include "lines/FrmSortParameters.h"

#include "lines/FrmSortParametersControls.h"

namespace scrivanta {

FrmSortParameters::FrmSortParameters(WindowHost& host, Workbench& workbench)
    : Dialog(host, IDD_FRM_SORT_PARAMETERS), logic_(workbench) {}

void FrmSortParameters::Show(HWND owner) {
  ShowModeless(owner);
  logic_.Capture(*this);
  FocusOn(TxtSortFrom);  // selects what has just been put there
}

void FrmSortParameters::OnInit() {
  SetChecked(OptString, true);
  SetChecked(OptShenXi, true);
}

bool FrmSortParameters::OnCommand(int controlId, int) {
  // Enter sends IDOK where the focus is in a text box.
  if (controlId != CmdSort && controlId != IDOK) {
    return false;
  }
  logic_.Sort(*this);
  return true;
}

std::u16string FrmSortParameters::From() const {
  return ControlText(TxtSortFrom);
}

std::u16string FrmSortParameters::To() const {
  return ControlText(TxtSortTo);
}

SortBy FrmSortParameters::By() const {
  if (IsChecked(OptNumber)) {
    return SortBy::kNumber;
  }
  if (IsChecked(OptPinYin)) {
    return SortBy::kPinyin;
  }
  return IsChecked(OptBiHua) ? SortBy::kStrokes : SortBy::kString;
}

bool FrmSortParameters::IsDescending() const {
  return IsChecked(OptJiangXi);
}

void FrmSortParameters::SetRange(const std::u16string& from, const std::u16string& to) {
  SetControlText(TxtSortFrom, from);
  SetControlText(TxtSortTo, to);
}

void FrmSortParameters::SetTotal(const std::u16string& total) {
  SetControlText(LabTotalNum, total);
}

}  // namespace scrivanta
