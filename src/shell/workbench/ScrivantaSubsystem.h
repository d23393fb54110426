// A subsystem of the window: its commands, which it puts into the table, and the windows that they open.
//
// A subsystem Xyz stands in src/xyz. Its ScrivantaXyz.h declares OpenXyz, and its name stands in the list of
// src/CMakeLists.txt, of which the composition is made.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

#include "shell/workbench/CommandTable.h"
#include "shell/workbench/EditBox.h"
#include "text/Interface.h"
#include "win/WindowHost.h"

namespace scrivanta {

// All that stands in a rich edit control which is not the document's.
struct RichEditToPrint {
  HWND owner;  // of the dialogs
  HWND richEdit;
  std::u16string name;  // stands above each page
  std::u16string text;  // the control's, with line breaks as CR LF
};

// What one subsystem does for others, which know it by this alone. Who offers something fills it in when it is opened,
// and it is asked for when it is used, after all of them have been opened; what nobody offers is empty.
struct SubsystemServices {
  // Asks for a printer and prints it. Throws what printing throws.
  std::function<void(Workbench&, const RichEditToPrint&)> printRichEdit;
};

// What all subsystems are opened with; it outlives them.
struct SubsystemHost {
  WindowHost& windows;
  CommandTable& commands;
  EditBox& editBox;
  SubsystemServices& services;
  const Folders& folders;
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
