#include "ScrivantaApp.h"

#include <commctrl.h>

#include "shell/CommandTable.h"
#include "shell/FrmMain.h"
#include "win/ComApartment.h"
#include "win/MessageLoop.h"
#include "win/RichEdit.h"

namespace scrivanta {

namespace {

void ShowError(HWND owner, const std::exception_ptr& error) {
  try {
    std::rethrow_exception(error);
  } catch (const std::exception& known) {
    MessageBoxA(owner, known.what(), nullptr, MB_ICONERROR);
  }
}

}  // namespace

int RunApp(HINSTANCE instance, const std::u16string& commandLine, std::atomic<HWND>* window) {
  const ComApartment apartment;
  const OwnedLibrary richEdit = LoadRichEditLibrary();
  INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_WIN95_CLASSES | ICC_BAR_CLASSES | ICC_PROGRESS_CLASS};
  InitCommonControlsEx(&controls);

  MessageLoop loop;
  WindowHost host{instance, loop, &ShowError};
  CommandTable commands;
  FrmMain mainWindow(host, commands);
  mainWindow.Open(commandLine);
  if (window != nullptr) {
    window->store(mainWindow.handle());
  }
  return loop.Run();
}

}  // namespace scrivanta
