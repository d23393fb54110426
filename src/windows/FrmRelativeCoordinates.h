// The window in which the family of a script and the point its co-ordinates count from are chosen.
#pragma once

#include "win/Dialog.h"
#include "windows/CoordinatesDialog.h"

namespace scrivanta {

class FrmRelativeCoordinates final : public Dialog, private CoordinatesView {
 public:
  FrmRelativeCoordinates(WindowHost& host, CoordinatesDialog& logic);

 private:
  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;

  CoordinatesForm Form() const override;
  void CloseView() override { Close(IDOK); }

  CoordinatesDialog& logic_;
};

}  // namespace scrivanta
