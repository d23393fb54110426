#include "window/driver/ProgramProcess.h"

#include <algorithm>
#include <vector>

#include "shell/window/FrmMain.h"
#include "shell/window/FrmMainControls.h"
#include "shell/window/MenuTree.h"
#include "text/win/WideText.h"
#include "window/driver/TestFiles.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"

namespace scrivanta {

namespace {

constexpr UINT kKilled = 99;  // the exit code of a process that was ended from outside

HWND FindMainWindow(DWORD processId) {
  const std::vector<HWND> windows = TopWindows(processId, kMainWindowClass);
  return windows.empty() ? nullptr : windows.front();
}

BOOL CALLBACK NoteUnpainted(HWND window, LPARAM isPainted) {
  *reinterpret_cast<bool*>(isPainted) &= GetUpdateRect(window, nullptr, FALSE) == FALSE;
  return TRUE;
}

// The window and its controls.
bool IsPainted(HWND window) {
  bool isPainted = true;
  NoteUnpainted(window, reinterpret_cast<LPARAM>(&isPainted));
  EnumChildWindows(window, NoteUnpainted, reinterpret_cast<LPARAM>(&isPainted));
  return isPainted;
}

}  // namespace

ProgramProcess::ProgramProcess(const std::u16string& commandLine, const std::filesystem::path& program) {
  std::wstring command = L"\"" + program.wstring() + L"\"";
  if (!commandLine.empty()) {
    command += L' ' + ToWide(commandLine);
  }
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  PROCESS_INFORMATION started{};
  if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &started) ==
      FALSE) {
    FailWithPicture("the program does not start: error " + std::to_string(GetLastError()) + ", " +
                    Utf8(program.u16string()));
  }
  CloseHandle(started.hThread);
  process_.Reset(started.hProcess);
  processId_ = started.dwProcessId;
  window_ = WaitFor("the window of the program's process", [this] { return FindMainWindow(processId_); });
}

ProgramProcess::ProgramProcess(HWND window) : window_(window) {
  GetWindowThreadProcessId(window_, &processId_);
  process_.Reset(OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE | PROCESS_QUERY_INFORMATION, FALSE, processId_));
}

ProgramProcess ProgramProcess::StartedBy(const ProgramProcess& program) {
  return ProgramProcess(WaitFor("the window of a program started by another", [&program] {
    HWND window = nullptr;
    do {
      window = FindWindowExW(nullptr, window, kMainWindowClass, nullptr);
    } while (window != nullptr && (window == program.window_ || IsWindowVisible(window) == FALSE));
    return window;
  }));
}

ProgramProcess::~ProgramProcess() {
  Kill();
}

std::filesystem::path ProgramProcess::BuiltProgram() {
  return TestProgramFolder() / L"Scrivanta.exe";
}

std::u16string ProgramProcess::Caption() const {
  return TextOf(window_);
}

std::u16string ProgramProcess::Text() const {
  return TextOf(Editor());
}

void ProgramProcess::Write(std::u16string_view text) const {
  Send(Editor(), EM_SETSEL, 0, -1);
  Send(Editor(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(ToWide(text).c_str()));
}

void ProgramProcess::ExpectCaption(std::u16string_view caption) const {
  ExpectShown("the caption", caption, [this] { return Caption(); });
}

void ProgramProcess::ExpectText(std::u16string_view text) const {
  ExpectShown("the document's text", text, [this] { return Text(); });
}

void ProgramProcess::WaitUntilDrawn() const {
  WaitUntil("the windows to be painted", [this] { return std::ranges::all_of(TopWindows(processId_), &IsPainted); });
}

void ProgramProcess::Menu(std::string_view controlName) const {
  PostMessageW(window_, WM_COMMAND, static_cast<WPARAM>(MenuCommandId(controlName).value()), 0);
}

MessageBoxDriver ProgramProcess::ExpectBox(const Message& message) const {
  return {processId_, message, [] {}};
}

FileDialogDriver ProgramProcess::ExpectFileDialog() const {
  return FileDialogDriver(processId_);
}

void ProgramProcess::Close() const {
  PostMessageW(window_, WM_SYSCOMMAND, SC_CLOSE, 0);
}

void ProgramProcess::AskForEndOfSession() const {
  PostMessageW(window_, WM_QUERYENDSESSION, 0, 0);
}

bool ProgramProcess::HasEnded() const {
  return WaitForSingleObject(process_.get(), 0) == WAIT_OBJECT_0;
}

int ProgramProcess::WaitForEnd() const {
  WaitUntil("the program's process to end", [this] { return HasEnded(); });
  DWORD code = 0;
  GetExitCodeProcess(process_.get(), &code);
  return static_cast<int>(code);
}

void ProgramProcess::Kill() {
  TerminateProcess(process_.get(), kKilled);
  WaitForSingleObject(process_.get(), INFINITE);
}

HWND ProgramProcess::Editor() const {
  return GetDlgItem(window_, RichTextBox1);
}

}  // namespace scrivanta
