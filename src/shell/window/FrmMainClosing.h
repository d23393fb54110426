// How the main window is closed: by its user, in the midst of a work, and at the end of the session.
#pragma once

#include <windows.h>

#include <functional>

#include "shell/document/DocumentFile.h"
#include "shell/document/DocumentRecovery.h"
#include "shell/window/FrmMainBusy.h"
#include "shell/window/FrmMainPrompts.h"
#include "shell/window/WindowWork.h"

namespace scrivanta {

class FrmMainClosing {
 public:
  // `keepPlacement` is called before the window goes; `runGuarded` shows whatever is thrown as a message.
  struct Window {
    std::function<void()> keepPlacement;
    std::function<void(const std::function<void()>&)> runGuarded;
  };

  FrmMainClosing(FrmMainPrompts& prompts, const WindowWork& work, FrmMainBusy& busy, DocumentFile& document,
                 DocumentRecovery& recovery, Window window)
      : prompts_(prompts),
        work_(work),
        busy_(busy),
        document_(document),
        recovery_(recovery),
        surroundings_(std::move(window)) {}

  void Close(HWND window);
  // A timer of the window, from the moment that a work was to be stopped for closing.
  void HandleTimer(HWND window) const;

  // The system asks whether the session may end; and tells whether it does.
  bool MayEndSession();
  void HandleSessionEnd(bool ends);

 private:
  bool MayClose();
  void OfferToStop(HWND window);

  FrmMainPrompts& prompts_;
  const WindowWork& work_;
  FrmMainBusy& busy_;
  DocumentFile& document_;
  DocumentRecovery& recovery_;
  Window surroundings_;
  bool isAsked_ = false;
  bool mayEndSession_ = false;
};

}  // namespace scrivanta
