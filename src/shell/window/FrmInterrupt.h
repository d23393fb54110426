// The small window that stops a command, or lets it go on.
#pragma once

#include <functional>

#include "win/Dialog.h"

namespace scrivanta {

class FrmInterrupt final : public Dialog {
 public:
  FrmInterrupt(WindowHost& host, std::function<void()> onStop);

 private:
  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;

  std::function<void()> onStop_;
};

}  // namespace scrivanta
