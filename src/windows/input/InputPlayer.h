// Plays steps on the keyboard, the mouse and the windows of the desktop.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "text/ExplainedError.h"
#include "text/Interface.h"
#include "text/Progress.h"
#include "windows/input/InputScript.h"

namespace scrivanta {

// A step that cannot be done: names its line. Those before it have been done.
class InputPlayError : public ExplainedError {
 public:
  InputPlayError(std::size_t line, std::u16string_view caption, std::u16string_view what);
};

// The real ones are ScrivantaInputDevice; tests have one that writes down what is done.
class InputDevice : public Interface {
 public:
  virtual void Key(KeyCode key, bool down) = 0;
  // A character as from an input method; a line feed is the Enter key.
  virtual void Character(char16_t c) = 0;
  virtual void MoveTo(ScreenPoint point) = 0;
  virtual void Button(MouseButton button, bool down) = 0;
  virtual void Wheel(long long turns) = 0;
  // False when there is no such window.
  virtual bool Activate(const std::u16string& caption) = 0;
  virtual std::optional<ScreenPoint> ClientCorner(const std::u16string& caption) = 0;
  virtual void Sleep(std::chrono::milliseconds time) = 0;
};

class InputPlayer {
 public:
  // Between two steps there is a pause.
  InputPlayer(InputDevice& device, std::chrono::milliseconds pause, Progress& progress)
      : device_(device), pause_(pause), progress_(progress) {}
  InputPlayer(const InputPlayer&) = delete;
  InputPlayer& operator=(const InputPlayer&) = delete;
  // Lets go whatever is held down.
  ~InputPlayer();

  // Waits, and then plays them. Throws Interrupted, and InputPlayError for a window that is not there.
  void Play(const std::vector<InputStep>& steps, std::chrono::milliseconds delay);
  std::size_t played() const noexcept { return played_; }

 private:
  void PlayAll(const std::vector<InputStep>& steps);
  void PlayOne(const InputStep& step);
  void Click(const InputStep& step, int times);
  void PressKeys(const std::vector<KeyCode>& keys);
  void Hold(KeyCode key);
  void LetGo(KeyCode key);
  void HoldButton(MouseButton button);
  void LetGoButton();
  void MoveTo(const std::optional<ScreenPoint>& point, std::size_t line);
  void Wait(std::chrono::milliseconds time);
  bool WaitForWindow(const InputStep& step);

  InputDevice& device_;
  std::chrono::milliseconds pause_;
  Progress& progress_;
  std::optional<std::u16string> relativeTo_;
  std::vector<KeyCode> held_;
  std::optional<MouseButton> heldButton_;
  std::size_t played_ = 0;
};

}  // namespace scrivanta
