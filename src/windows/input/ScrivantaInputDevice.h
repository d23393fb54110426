// The keyboard, the mouse and the windows of the real desktop.
#pragma once

#include <windows.h>

#include "win/Handles.h"
#include "windows/input/InputPlayer.h"
#include "windows/input/SendInputDialog.h"

namespace scrivanta {

class ScrivantaInputDevice final : public InputDevice {
 public:
  void Key(KeyCode key, bool down) override;
  void Character(char16_t c) override;
  void MoveTo(ScreenPoint point) override;
  void Button(MouseButton button, bool down) override;
  void Wheel(bool awayFromUser) override;
  Activation Activate(const std::u16string& caption) override;
  bool HasWindow(const std::u16string& caption) override;
  std::optional<ScreenPoint> ClientCorner(const std::u16string& caption) override;
  void Sleep(std::chrono::milliseconds time) override;
};

// An Esc that the device above has not played itself; no program gets it. Only one may live at a time.
class ScrivantaStopKey final : public StopKey {
 public:
  // Throws std::system_error when the keyboard cannot be heard: nothing is played then.
  ScrivantaStopKey();

  bool IsPressed() const override;

 private:
  static LRESULT CALLBACK Hear(int code, WPARAM message, LPARAM lParam) noexcept;

  static inline bool wasPressed = false;
  OwnedHook hook_;
};

}  // namespace scrivanta
