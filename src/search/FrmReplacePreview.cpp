#include "search/FrmReplacePreview.h"

#include "search/FrmReplacePreviewControls.h"

namespace scrivanta {

FrmReplacePreview::FrmReplacePreview(WindowHost& host, ReplacePreview& logic)
    : Dialog(host, IDD_FRM_REPLACE_PREVIEW), logic_(logic) {}

void FrmReplacePreview::OnInit() {
  list_.Attach(Control(LstPlaces), {{u"文件", 140}, {u"行", 45}, {u"替换前", 250}, {u"替换后", 250}});
  list_.ShowTicks([this](std::size_t row) { return logic_.IsTicked(row); },
                  [this](const std::vector<std::size_t>& rows) { logic_.Toggle(*this, rows); });
  SetToolTip(CmdTickFile, u"勾选选中那一行所在文件的所有地方；已经全部勾选时，全部去掉");
  logic_.Open(*this);
}

bool FrmReplacePreview::OnCommand(int controlId, int) {
  switch (controlId) {
    case CmdTickAll:
      logic_.TickAll(*this, true);
      return true;
    case CmdTickNone:
      logic_.TickAll(*this, false);
      return true;
    case CmdTickFile:
      if (const auto row = list_.Chosen()) {
        logic_.ToggleFile(*this, *row);
      }
      return true;
    case CmdReplaceTicked:
      logic_.Replace(*this);
      return true;
    default:
      return false;
  }
}

std::optional<LRESULT> FrmReplacePreview::OnMessage(UINT message, WPARAM, LPARAM lParam) {
  return message == WM_NOTIFY && list_.OnNotify(lParam) ? std::optional<LRESULT>(0) : std::nullopt;
}

void FrmReplacePreview::ShowFolder(const std::u16string& text) {
  SetControlText(LblFolder, text);
}

void FrmReplacePreview::ShowRows(const std::vector<PreviewRow>& rows) {
  std::vector<ReportRow> shown;
  for (const PreviewRow& row : rows) {
    shown.push_back({row.file, row.line, row.before, row.after});
  }
  list_.Show(std::move(shown));
  list_.Choose(0);
}

void FrmReplacePreview::ShowTicks() {
  list_.Redraw();
}

void FrmReplacePreview::ShowCount(const std::u16string& text) {
  SetControlText(LblCount, text);
}

void FrmReplacePreview::EnableReplace(bool enable) {
  EnableControl(CmdReplaceTicked, enable);
}

void FrmReplacePreview::Leave() {
  Close(IDOK);
}

}  // namespace scrivanta
