// The window of the database exchange, as its handler sees it: FrmDatabase on the real desktop, a script in tests.
#pragma once

#include "text/Interface.h"

namespace scrivanta {

class DatabaseDialog;

class DatabaseDialogs : public Interface {
 public:
  // FrmDatabase, modal: comes back when it is closed.
  virtual void ShowDatabase(DatabaseDialog& dialog) = 0;
};

}  // namespace scrivanta
