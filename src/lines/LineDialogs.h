// The windows of the line commands, as the handlers see them: Frm... classes on the real desktop, scripts in tests.
#pragma once

#include "text/Interface.h"

namespace scrivanta {

class DelLinesDialog;
class Workbench;

class LineDialogs : public Interface {
 public:
  // FrmDelLineFromXtoY, modal: comes back when it is closed.
  virtual void ShowDelLines(DelLinesDialog& dialog) = 0;
  // FrmSortParameters, not modal: comes back at once. When it is open already it captures again and comes to the front.
  virtual void ShowSort(Workbench& workbench) = 0;
};

}  // namespace scrivanta
