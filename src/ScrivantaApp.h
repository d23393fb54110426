// The program as a whole: every subsystem's commands in one table, and the main window.
#pragma once

#include <windows.h>

#include <atomic>
#include <string>

namespace scrivanta {

// Runs the program on the calling thread until its window is closed and returns its exit code. The command line is what
// follows the program's name. `window` is given the main window once it is ready for input. Nothing is left behind, so
// a process may run it several times.
int RunApp(HINSTANCE instance, const std::u16string& commandLine, std::atomic<HWND>* window = nullptr);

}  // namespace scrivanta
