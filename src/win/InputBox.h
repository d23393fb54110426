// A box that asks for one line of text.
#pragma once

#include <functional>
#include <string>

#include "win/Dialog.h"

namespace scrivanta {

struct InputBoxTexts {
  std::u16string prompt;
  std::u16string title;
  std::u16string preset;
  std::u16string ok;
  std::u16string cancel;
  bool hidden = false;     // shows dots in place of what is typed
  bool hasFields = false;  // the box is as wide as the preset, and the caret stands at its beginning
  // A third button, and what it makes of the text that is typed.
  std::u16string assistant = {};
  std::function<std::u16string(const std::u16string& typed)> assist = nullptr;
};

class InputBox final : public Dialog {
 public:
  InputBox(WindowHost& host, InputBoxTexts texts);

  // What was typed; empty when the box was cancelled.
  std::u16string Ask(HWND owner);

 private:
  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;
  void ShowFields();

  InputBoxTexts texts_;
  std::u16string answer_;
};

}  // namespace scrivanta
