#include "system/registry/FrmRegistryChanges.h"

#include "system/registry/FrmRegistryControls.h"
#include "text/DecimalText.h"

namespace scrivanta {

FrmRegistryChanges::FrmRegistryChanges(WindowHost& host, const std::vector<RegistryChangeRow>& rows)
    : Dialog(host, IDD_FRM_REGISTRY_CHANGES), rows_(rows) {}

void FrmRegistryChanges::OnInit() {
  list_.Attach(Control(LstChanges), {{u"键", 260}, {u"名称", 110}, {u"原来", 150}, {u"改为", 150}});
  std::vector<ReportRow> shown;
  for (const RegistryChangeRow& row : rows_) {
    shown.push_back({row.key, row.name, row.before, row.after});
  }
  list_.Show(std::move(shown));
  SetControlText(LblChanges, u"共" + DecimalText(rows_.size()) + u"处。改变以前的内容会先存成文件，“恢复”可以还原。");
  FocusOn(IDCANCEL);
}

bool FrmRegistryChanges::OnCommand(int controlId, int) {
  if (controlId == IDOK) {
    Close(IDOK);
    return true;
  }
  return false;
}

std::optional<LRESULT> FrmRegistryChanges::OnMessage(UINT message, WPARAM, LPARAM lParam) {
  return message == WM_NOTIFY && list_.OnNotify(lParam) ? std::optional<LRESULT>(0) : std::nullopt;
}

}  // namespace scrivanta
