// The windows of the search commands, as the handlers see them: Frm... classes on the real desktop, scripts in tests.
#pragma once

#include "text/Interface.h"

namespace scrivanta {

class FindDialog;
class RegularTest;

// Which box of the find dialog the user is going to fill in.
enum class FindDialogFocus { kFindText, kReplacement };

class SearchDialogs : public Interface {
 public:
  // Both are modeless: shown, or brought to the front. The dialogs outlive their windows.
  virtual void ShowFind(FindDialog& dialog, FindDialogFocus focus) = 0;
  virtual void ShowRegularTest(RegularTest& dialog) = 0;
};

}  // namespace scrivanta
