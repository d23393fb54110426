#include "tables/FrmChangeToSDFFile.h"

#include "tables/FrmChangeToSDFFileControls.h"

namespace scrivanta {

FrmChangeToSDFFile::FrmChangeToSDFFile(WindowHost& host, ConversionDialog& logic)
    : FrmConversion(host, IDD_FRM_CHANGE_TO_SDF_FILE, CmdStartChangeToSDF, TxtSDFPreview), logic_(logic) {}

void FrmChangeToSDFFile::ShowChoices() {
  const SdfChoices choices;
  FillWithDelimiters(CmbSDFDelimiter, choices.delimiter);
  FillWithUnits(CmbSDFUnit);
  Show(choices);
  SetToolTip(TxtSDFWidths, u"用逗号隔开，如：10,8；不填：按每列最宽的字段");
  SetToolTip(TxtSDFAligns, u"每列一个字母：l（左）、r（右）、0（右，补零）；不填：都是左");
}

void FrmChangeToSDFFile::Show(const SdfChoices& choices) {
  SetChecked(OptFromSDF, choices.isBack);
  SetChecked(OptToSDF, !choices.isBack);
  SetControlText(TxtSDFWidths, choices.widths);
  SetControlText(TxtSDFAligns, choices.aligns);
  Choose(CmbSDFUnit, static_cast<int>(choices.unit));
  SetChecked(ChkSDFEndMark, choices.endMark);
}

void FrmChangeToSDFFile::EnableControls() {
  EnableControl(ChkSDFEndMark, !IsChecked(OptFromSDF));
}

bool FrmChangeToSDFFile::OnButton(int controlId) {
  if (controlId == CmdSaveLayout) {
    SaveLayout(logic_, Choices());
    return true;
  }
  if (controlId != CmdLoadLayout) {
    return false;
  }
  if (const auto loaded = LoadLayout(logic_, Choices())) {
    Show(*loaded);
    RefreshPreview();
  }
  return true;
}

SdfChoices FrmChangeToSDFFile::Choices() const {
  return {.isBack = IsChecked(OptFromSDF),
          .delimiter = ControlText(CmbSDFDelimiter),
          .widths = ControlText(TxtSDFWidths),
          .aligns = ControlText(TxtSDFAligns),
          .unit = static_cast<WidthUnit>(Chosen(CmbSDFUnit)),
          .endMark = IsChecked(ChkSDFEndMark)};
}

}  // namespace scrivanta
