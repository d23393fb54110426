// A box that asks for one line of text.
#pragma once

#include <string>

#include "win/Dialog.h"

namespace scrivanta {

struct InputBoxTexts {
  std::u16string prompt;
  std::u16string title;
  std::u16string preset;
  std::u16string ok;
  std::u16string cancel;
  bool hidden = false;  // shows dots in place of what is typed
};

class InputBox final : public Dialog {
 public:
  InputBox(WindowHost& host, InputBoxTexts texts);

  // What was typed; empty when the box was cancelled.
  std::u16string Ask(HWND owner);

 private:
  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;

  InputBoxTexts texts_;
  std::u16string answer_;
};

}  // namespace scrivanta
