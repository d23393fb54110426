// What FrmJiaZiMu does, without its window.
#pragma once

#include "shell/workbench/ResultFiles.h"
#include "tables/PinyinInitials.h"
#include "text/Interface.h"

namespace scrivanta {

// The window's controls.
class InitialsView : public Interface {
 public:
  virtual InitialsPlace Place() const = 0;    // OptZiMuQian, OptZiMuHou, OptZiMuLie, OptZiMuZhi
  virtual bool IsFirstOnly() const = 0;       // ChkShouZiMu
  virtual bool IsSmall() const = 0;           // ChkXiaoXie
  virtual bool AreNames() const = 0;          // ChkXingMing
  virtual bool IsDoubtfulListed() const = 0;  // ChkDuoYinZi
  virtual void CloseView() = 0;
};

class InitialsDialog {
 public:
  InitialsDialog(Workbench& workbench, CapturedInput input) : workbench_(workbench), input_(std::move(input)) {}

  // The button CmdJiaZiMu. Throws FileError, Interrupted.
  void Start(InitialsView& view);

 private:
  Workbench& workbench_;
  CapturedInput input_;
};

}  // namespace scrivanta
