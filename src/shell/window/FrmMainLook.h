// Icons and fonts of the main window, in the sizes of the screen that it stands on.
#pragma once

#include <windows.h>

#include "win/Handles.h"

namespace scrivanta {

class FrmMainLook {
 public:
  // After the window was made, and whenever the resolution of its screen (in dots per inch) or the user's taste
  // changes. The title bar, the list of windows and the status bar have what they were given last.
  void Apply(HINSTANCE instance, HWND window, HWND statusBar, UINT dotsPerInch);

 private:
  OwnedIcon icon_;
  OwnedIcon smallIcon_;
  OwnedFont statusFont_;
};

}  // namespace scrivanta
