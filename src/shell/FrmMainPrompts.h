// The questions of commands on the platform's boxes and dialogs.
#pragma once

#include <windows.h>

#include <exception>
#include <functional>

#include "shell/Prompts.h"
#include "win/WindowHost.h"

namespace scrivanta {

class FrmMainPrompts final : public Prompts {
 public:
  // The owner is asked for whenever a box is shown.
  FrmMainPrompts(WindowHost& host, std::function<HWND()> owner) : host_(host), owner_(std::move(owner)) {}

  Answer Ask(const Message& message) override;
  std::u16string Input(const InputQuestion& question) override;
  std::filesystem::path AskForFile(const FileQuestion& question) override;
  std::filesystem::path AskForFolder(const std::u16string& title) override;

 private:
  WindowHost& host_;
  std::function<HWND()> owner_;
};

// One message box for what has reached a window from inside; none for an Interrupted.
void ShowFailure(HWND owner, const std::exception_ptr& failure);

}  // namespace scrivanta
