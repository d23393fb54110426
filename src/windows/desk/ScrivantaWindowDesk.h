// The windows and processes of the real desktop.
#pragma once

#include "windows/desk/WindowDesk.h"

namespace scrivanta {

class ScrivantaWindowDesk final : public WindowDesk {
 public:
  std::vector<DeskWindow> Windows() const override;
  std::vector<DeskProcess> Processes() const override;
  std::optional<DeskWindow> Find(WindowHandle window) const override;
  WindowHandle TopWindowAt(ScreenPoint point) const override;
  ProcessId OwnProcess() const override;

  std::u16string Text(WindowHandle window) const override;
  void SetText(WindowHandle window, const std::u16string& text) override;
  void BringUp(WindowHandle window) override;
  void Show(WindowHandle window, bool visible) override;
  void Move(WindowHandle window, const WindowBounds& bounds) override;
  void KeepOnTop(WindowHandle window, bool onTop) override;
  void Close(WindowHandle window) override;
  void EndProcess(const DeskProcess& process) override;
};

}  // namespace scrivanta
