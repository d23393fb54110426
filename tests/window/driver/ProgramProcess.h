// The program as it is shipped, in a process of its own: for what only that shows. Of another process's windows less
// can be seen than of one's own: no menu states, no positions in the edit box.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "shell/workbench/Prompts.h"
#include "win/Handles.h"
#include "window/driver/FileDialogDriver.h"
#include "window/driver/MessageBoxDriver.h"

namespace scrivanta {

class ProgramProcess {
 public:
  // Starts the program, or a copy of it, with what follows its name on the command line. Returns when its window is
  // there.
  explicit ProgramProcess(const std::u16string& commandLine = {},
                          const std::filesystem::path& program = BuiltProgram());
  // One that was not started by the test, but by the program given. Waits for its window.
  static ProgramProcess StartedBy(const ProgramProcess& program);
  ProgramProcess(const ProgramProcess&) = delete;
  ProgramProcess& operator=(const ProgramProcess&) = delete;
  // Ends the process if it has not ended.
  ~ProgramProcess();

  static std::filesystem::path BuiltProgram();

  HWND MainWindow() const noexcept { return window_; }
  DWORD processId() const noexcept { return processId_; }
  std::u16string Caption() const;
  std::u16string Text() const;
  // Replaces the text, as if it were pasted.
  void Write(std::u16string_view text) const;
  void ExpectCaption(std::u16string_view caption) const;
  void ExpectText(std::u16string_view text) const;

  // Until everything has been painted, before a picture is taken.
  void WaitUntilDrawn() const;

  void Menu(std::string_view controlName) const;
  MessageBoxDriver ExpectBox(const Message& message) const;
  FileDialogDriver ExpectFileDialog() const;
  void Close() const;
  // Asks whether the program is ready for the end of the session, as when its user logs off.
  void AskForEndOfSession() const;
  bool HasEnded() const;
  // Waits until the process has ended; its exit code.
  int WaitForEnd() const;
  // As when the machine loses its power.
  void Kill();

 private:
  explicit ProgramProcess(HWND window);

  HWND Editor() const;

  OwnedKernelObject process_;
  DWORD processId_ = 0;
  HWND window_ = nullptr;
};

}  // namespace scrivanta
