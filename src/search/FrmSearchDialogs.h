// The windows of the search commands on the desktop.
#pragma once

#include <windows.h>

#include <functional>

#include "search/FrmFind.h"
#include "search/ScrivantaRegularTest.h"
#include "search/SearchDialogs.h"

namespace scrivanta {

class FrmSearchDialogs final : public SearchDialogs {
 public:
  // The owner is asked for when a window opens.
  FrmSearchDialogs(WindowHost& host, std::function<HWND()> owner)
      : find_(host), regularTest_(host), owner_(std::move(owner)) {}

  void ShowFind(FindDialog& dialog, FindDialogFocus focus) override { find_.Show(dialog, owner_(), focus); }
  void ShowRegularTest(RegularTest& dialog) override { regularTest_.Show(dialog, owner_()); }

 private:
  FrmFind find_;
  ScrivantaRegularTest regularTest_;
  std::function<HWND()> owner_;
};

}  // namespace scrivanta
