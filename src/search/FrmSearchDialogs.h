// The windows of the search commands on the desktop.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>

#include "search/FrmFind.h"
#include "search/ScrivantaRegularTest.h"
#include "search/SearchDialogs.h"

namespace scrivanta {

class FrmSearchDialogs final : public SearchDialogs {
 public:
  // The owner is asked for when a window opens.
  FrmSearchDialogs(WindowHost& host, std::function<HWND()> owner) : host_(host), owner_(std::move(owner)) {}

  void ShowFind(Workbench& workbench, FindState& state, FindDialogFocus focus) override {
    if (find_ == nullptr) {
      find_ = std::make_unique<FrmFind>(host_, workbench, state);
    }
    find_->Show(owner_(), focus);
  }
  void ShowRegularTest(Workbench& workbench) override {
    if (regularTest_ == nullptr) {
      regularTest_ = std::make_unique<ScrivantaRegularTest>(host_, workbench);
    }
    regularTest_->Show(owner_());
  }

 private:
  WindowHost& host_;
  std::function<HWND()> owner_;
  std::unique_ptr<FrmFind> find_;  // each is made when it is first shown
  std::unique_ptr<ScrivantaRegularTest> regularTest_;
};

}  // namespace scrivanta
