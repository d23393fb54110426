#include "tables/FrmFenLan.h"

#include "tables/FrmFenLanControls.h"

namespace scrivanta {

FrmFenLan::FrmFenLan(WindowHost& host, ConversionDialog& logic)
    : FrmConversion(host, IDD_FRM_FEN_LAN, CmdStartFenLan, TxtFenLanPreview), logic_(logic) {}

void FrmFenLan::ShowChoices() {
  const FenLanChoices choices;
  // In the order of FenLanWay and of TooWide.
  FillList(CmbFenLanWay, {u"各行排成几栏", u"把分栏的文本还原成行", u"按分隔符拆成表格（TAB符）",
                          u"按正则表达式拆成表格（TAB符）", u"按位置拆成表格（TAB符），如：5,9"});
  FillList(CmbFenLanTooWide, {u"在本栏内换行", u"截断，并报告行号", u"加宽本栏"});
  FillWithUnits(CmbFenLanUnit);
  FillWithDelimiters(CmbFenLanSplitAt, choices.splitAt);
  SetControlText(TxtFenLanCount, choices.count);
  SetControlText(TxtFenLanGap, choices.gap);
  SetToolTip(TxtFenLanLines, u"每栏的行数；不填：不分页，各栏一样长");
  SetToolTip(TxtFenLanWidth, u"不填：按本栏最宽的行");
}

void FrmFenLan::EnableControls() {
  const FenLanWay way = Choices().way;
  const bool isColumns = way == FenLanWay::kColumns;
  const bool hasColumns = isColumns || way == FenLanWay::kBack;
  for (const int box : {TxtFenLanCount, TxtFenLanLines, TxtFenLanWidth, TxtFenLanGap, ChkFenLanAcross}) {
    EnableControl(box, hasColumns);
  }
  EnableControl(CmbFenLanTooWide, isColumns);
  EnableControl(CmbFenLanUnit, hasColumns || way == FenLanWay::kSplitAtPositions);
  EnableControl(CmbFenLanSplitAt, !hasColumns);
}

FenLanChoices FrmFenLan::Choices() const {
  return {.way = static_cast<FenLanWay>(Chosen(CmbFenLanWay)),
          .count = ControlText(TxtFenLanCount),
          .linesPerPage = ControlText(TxtFenLanLines),
          .width = ControlText(TxtFenLanWidth),
          .gap = ControlText(TxtFenLanGap),
          .across = IsChecked(ChkFenLanAcross),
          .tooWide = static_cast<TooWide>(Chosen(CmbFenLanTooWide)),
          .unit = static_cast<WidthUnit>(Chosen(CmbFenLanUnit)),
          .splitAt = ControlText(CmbFenLanSplitAt)};
}

}  // namespace scrivanta
