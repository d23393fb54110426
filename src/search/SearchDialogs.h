// The windows of the search commands, as the handlers see them: Frm... classes on the real desktop, scripts in tests.
#pragma once

#include "text/Interface.h"

namespace scrivanta {

class Workbench;
struct FindState;

// Which box of the find dialog the user is going to fill in.
enum class FindDialogFocus { kFindText, kReplacement };

class SearchDialogs : public Interface {
 public:
  // Both are modeless: shown, or brought to the front, and back at once. Workbench and state outlive the windows.
  virtual void ShowFind(Workbench& workbench, FindState& state, FindDialogFocus focus) = 0;
  virtual void ShowRegularTest(Workbench& workbench) = 0;
};

}  // namespace scrivanta
