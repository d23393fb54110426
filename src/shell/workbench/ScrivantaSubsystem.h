// A subsystem of the window: its commands, which it puts into the table, and the windows that they open.
//
// A subsystem Xyz stands in src/xyz. Its ScrivantaXyz.h declares OpenXyz, and its name stands in the list of
// src/CMakeLists.txt, of which the composition is made.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>

#include "shell/workbench/CommandTable.h"
#include "shell/workbench/EditBox.h"
#include "text/Interface.h"
#include "win/WindowHost.h"

namespace scrivanta {

// What all subsystems are opened with; it outlives them.
struct SubsystemHost {
  WindowHost& windows;
  CommandTable& commands;
  EditBox& editBox;
  // Both are asked for when a window opens: the edit box has another window after each change of the whole text.
  std::function<HWND()> mainWindow;
  std::function<HWND()> editBoxWindow;
};

class Subsystem : public Interface {};

// The usual subsystem: the dialogs that its commands open live as long as the table.
template <typename Dialogs>
struct SubsystemOf final : Subsystem {
  template <typename... Arguments>
  explicit SubsystemOf(Arguments&&... arguments) : dialogs(std::forward<Arguments>(arguments)...) {}

  Dialogs dialogs;
};

}  // namespace scrivanta
