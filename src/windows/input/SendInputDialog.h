// What FrmSendInput does, without its window.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "shell/workbench/Workbench.h"
#include "text/Interface.h"
#include "windows/input/InputPlayer.h"

namespace scrivanta {

// What the controls hold.
struct SendInputForm {
  std::u16string script;  // TxtInputScript
  std::u16string delay;   // TxtInputDelay: seconds before the first step
  std::u16string pause;   // TxtInputPause: milliseconds between two steps
};

class SendInputView : public Interface {
 public:
  virtual SendInputForm Form() const = 0;
  virtual void ShowForm(const SendInputForm& form) = 0;
  virtual void ShowSteps(const std::vector<InputStepText>& steps) = 0;
  virtual void ShowRemark(const std::u16string& text) = 0;
  // The window gets out of the way of what is played, and comes back.
  virtual void StepAside(bool aside) = 0;
};

// While one lives, an Esc from the keyboard stops the playing, whatever window has the focus.
class StopKey : public Interface {
 public:
  virtual bool IsPressed() const = 0;
};
using MakeStopKey = std::function<std::unique_ptr<StopKey>()>;

class SendInputDialog {
 public:
  SendInputDialog(Workbench& workbench, InputDevice& device, MakeStopKey makeStopKey)
      : workbench_(workbench), device_(device), makeStopKey_(std::move(makeStopKey)) {}

  // The selected lines, or the whole document.
  void Open(SendInputView& view);
  // The button CmdCheckInput: what would be done. Throws InputScriptError.
  void Check(SendInputView& view);
  // The button CmdPlayInput: all is parsed before anything is played. Throws ExplainedError: for what is no action,
  // before, and for a window that is not there, when it is its turn.
  void Play(SendInputView& view);
  // The list of what would be done, in place of the document's selection.
  void PutIntoDocument(SendInputView& view);

 private:
  std::vector<InputStep> Parse(SendInputView& view);

  Workbench& workbench_;
  InputDevice& device_;
  MakeStopKey makeStopKey_;
};

}  // namespace scrivanta
