// The window in which a value of the registry is written.
#pragma once

#include <functional>
#include <optional>

#include "system/registry/RegistryDialog.h"
#include "win/Dialog.h"

namespace scrivanta {

class FrmRegistryValue final : public Dialog {
 public:
  using Check = std::function<void(const RegistryValueForm&)>;
  FrmRegistryValue(WindowHost& host, RegistryValueForm form, const Check& check);

  std::optional<RegistryValueForm> Ask(HWND owner);

 private:
  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;
  RegistryType ChosenType() const;
  void ShowHint();

  RegistryValueForm form_;
  const Check& check_;
  std::vector<RegistryType> types_;  // in the order of the box
};

}  // namespace scrivanta
