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

// How far a window has come that is to be in front of the others.
enum class Activation { kNoWindow, kAsked, kInFront };

// The real one is ScrivantaInputDevice; tests have one that writes down what is done. Windows are those of other
// programs: the one with that caption, or else one that has it in its caption. What is held down can always be let go.
class InputDevice : public Interface {
 public:
  virtual void Key(KeyCode key, bool down) = 0;
  // A character as from an input method.
  virtual void Character(char16_t c) = 0;
  virtual void MoveTo(ScreenPoint point) = 0;
  virtual void Button(MouseButton button, bool down) = 0;
  // By one notch.
  virtual void Wheel(bool awayFromUser) = 0;
  // Asks for the window to be in front, unless it is.
  virtual Activation Activate(const std::u16string& caption) = 0;
  virtual bool HasWindow(const std::u16string& caption) = 0;
  // Nothing for one that is not there, or is minimised.
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

  // Waits, plays them, and waits for them to arrive. Throws Interrupted, and InputPlayError for a window that is not
  // there.
  void Play(const std::vector<InputStep>& steps, std::chrono::milliseconds delay);
  std::size_t played() const noexcept { return played_; }

 private:
  void PlayAll(const std::vector<InputStep>& steps);
  void PlayOne(const InputStep& step);
  void Click(const InputStep& step, int times);
  void Activate(const InputStep& step);
  void Turn(long long notches);
  void PressKeys(const std::vector<KeyCode>& keys);
  void Hold(KeyCode key);
  void LetGo(KeyCode key);
  void HoldButton(MouseButton button);
  void LetGoButton();
  ScreenPoint CornerOf(const std::u16string& caption, std::size_t line);
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
