// The windows of the commands about windows, as the handlers see them: Frm... classes on the real desktop, scripts in
// tests.
#pragma once

#include "text/Interface.h"

namespace scrivanta {

class CoordinatesDialog;
class SendInputDialog;
class WindowsDialog;

class WindowsDialogs : public Interface {
 public:
  // FrmRelativeCoordinates, modal: comes back when it is closed.
  virtual void ShowCoordinates(CoordinatesDialog& dialog) = 0;
  // FrmSendInput, likewise.
  virtual void ShowSendInput(SendInputDialog& dialog) = 0;
  // FrmWindows, likewise.
  virtual void ShowWindows(WindowsDialog& dialog) = 0;
};

}  // namespace scrivanta
