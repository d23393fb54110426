// The window that shows what is going to be changed in the registry.
#pragma once

#include "system/registry/RegistryChange.h"
#include "win/Dialog.h"
#include "win/ReportList.h"

namespace scrivanta {

class FrmRegistryChanges final : public Dialog {
 public:
  FrmRegistryChanges(WindowHost& host, const std::vector<RegistryChangeRow>& rows);

 private:
  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  const std::vector<RegistryChangeRow>& rows_;
  ReportList list_;
};

}  // namespace scrivanta
