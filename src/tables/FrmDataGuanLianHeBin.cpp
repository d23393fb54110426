#include "tables/FrmDataGuanLianHeBin.h"

#include "tables/FrmDataGuanLianHeBinControls.h"

namespace scrivanta {

FrmDataGuanLianHeBin::FrmDataGuanLianHeBin(WindowHost& host, JoinDialog& logic)
    : FrmConversion(host, IDD_FRM_DATA_GUAN_LIAN_HE_BIN, CmdStartGuanLian, TxtJoinPreview), logic_(logic) {}

void FrmDataGuanLianHeBin::ShowChoices() {
  const JoinChoices choices;
  FillWithDelimiters(CmbFirstDelimiter, choices.delimiter);
  FillWithDelimiters(CmbSecondDelimiter, choices.secondDelimiter);
  // In the order of JoinKind.
  FillList(CmbJoinKind, {u"两个表都有的行", u"文档的所有行", u"第二个表的所有行", u"两个表的所有行"});
  Choose(CmbJoinKind, static_cast<int>(choices.kind));
  SetControlText(TxtFirstKey, choices.key);
  SetToolTip(TxtFirstKey, u"列的序号（1起）、字母（A、B……）或列名，多列用逗号隔开");
  SetToolTip(TxtSecondKey, u"不填：与文档的相同");
  SetToolTip(TxtFirstColumns, u"不填：所有的列");
  SetToolTip(TxtSecondColumns, u"不填：关联列以外所有的列");
}

bool FrmDataGuanLianHeBin::OnButton(int controlId) {
  if (controlId != CmdChooseSecond) {
    return false;
  }
  const std::u16string file = logic_.AskForSecond();
  if (!file.empty()) {
    SetControlText(TxtSecondFile, file);
  }
  return true;
}

JoinChoices FrmDataGuanLianHeBin::Choices() const {
  return {.file = ControlText(TxtSecondFile),
          .delimiter = ControlText(CmbFirstDelimiter),
          .secondDelimiter = ControlText(CmbSecondDelimiter),
          .key = ControlText(TxtFirstKey),
          .secondKey = ControlText(TxtSecondKey),
          .columns = ControlText(TxtFirstColumns),
          .secondColumns = ControlText(TxtSecondColumns),
          .kind = static_cast<JoinKind>(Chosen(CmbJoinKind)),
          .hasHeader = IsChecked(ChkJoinHeader),
          .comparison = {.ignoreCase = IsChecked(ChkJoinIgnoreCase),
                         .ignoreBlanks = IsChecked(ChkJoinIgnoreBlanks),
                         .ignoreWidth = IsChecked(ChkJoinIgnoreWidth)},
          .listsUnmatched = IsChecked(ChkListUnmatched)};
}

}  // namespace scrivanta
