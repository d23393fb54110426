// The questions of commands on the platform's boxes and dialogs.
#pragma once

#include <windows.h>

#include <exception>
#include <functional>
#include <vector>

#include "shell/workbench/Prompts.h"
#include "win/WindowHost.h"

namespace scrivanta {

class FrmMainPrompts final : public Prompts {
 public:
  // The owner is asked for whenever a box is shown.
  FrmMainPrompts(WindowHost& host, std::function<HWND()> owner) : host_(host), owner_(std::move(owner)) {}

  Answer Ask(const Message& message) override;
  std::u16string Input(const InputQuestion& question) override;
  std::filesystem::path AskForFile(const FileQuestion& question) override;
  std::vector<std::filesystem::path> AskForFiles(const FileQuestion& question) override;
  std::filesystem::path AskForFolder(const FolderQuestion& question) override;
  // Whether a box stands. The main window is disabled then, whichever window is the owner.
  bool isAsking() const noexcept { return asking_ > 0; }

 private:
  class Asking;

  WindowHost& host_;
  std::function<HWND()> owner_;
  int asking_ = 0;
};

// One message box for what has reached a window from inside; none for an Interrupted.
void ShowFailure(HWND owner, const std::exception_ptr& failure) noexcept;

}  // namespace scrivanta
