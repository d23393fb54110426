// A dialog on the screen as the form store sees it (shell/FormState.h).
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "shell/services/FormState.h"

namespace scrivanta {

// A control by its identifier. Its type is found out from its window.
struct NamedControl {
  int id = 0;
  std::u16string_view name;
  std::optional<int> index = {};  // of a member of a control array
};

class ScrivantaForm final : public Form {
 public:
  // The controls in the order in which they are to be restored; the dialog outlives the object.
  ScrivantaForm(HWND dialog, std::u16string_view name, std::vector<NamedControl> controls)
      : dialog_(dialog), name_(name), controls_(std::move(controls)) {}

  std::u16string Name() const override { return name_; }
  std::vector<FormControl> Controls() const override;
  void SetControl(const FormControl& control) override;
  FormPlacement Placement() const override;
  // Keeps the window on a screen, and the size of one whose border cannot be dragged.
  void SetPlacement(const FormPlacement& placement) override;

 private:
  HWND dialog_;
  std::u16string name_;
  std::vector<NamedControl> controls_;
};

}  // namespace scrivanta
