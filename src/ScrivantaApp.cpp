#include "ScrivantaApp.h"

#include <commctrl.h>

#include <memory>

#include "crypto/CryptoCommands.h"
#include "crypto/FrmSecret.h"
#include "lines/FrmLineDialogs.h"
#include "lines/LineCommands.h"
#include "printing/FrmPrintDialogs.h"
#include "regexp/ScrivantaRegExpObject.h"
#include "search/FrmSearchDialogs.h"
#include "search/SearchCommands.h"
#include "shell/ChosenRegExpEngine.h"
#include "shell/CommandTable.h"
#include "shell/FrmMain.h"
#include "shell/FrmOptions.h"
#include "shell/PortableStore.h"
#include "shell/ScrivantaDesktop.h"
#include "shell/ScrivantaRegistry.h"
#include "shell/SettingsStore.h"
#include "shell/ShellCommands.h"
#include "win/ComApartment.h"
#include "win/MessageLoop.h"
#include "win/RichEdit.h"

namespace scrivanta {

namespace {

std::unique_ptr<RegistryStore> OpenRegistryStore(const IniFile& iniFile) {
  if (IsPortable(iniFile)) {
    return std::make_unique<PortableStore>(iniFile);
  }
  return std::make_unique<ScrivantaRegistry>(kProgramTitle);
}

}  // namespace

int RunApp(HINSTANCE instance, const std::u16string& commandLine, std::atomic<HWND>* window) {
  // What was copied from the edit box lies on the clipboard as an object of this library, so the library goes last.
  const OwnedLibrary richEdit = LoadRichEditLibrary();
  const ComApartment apartment;
  INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_WIN95_CLASSES | ICC_BAR_CLASSES | ICC_PROGRESS_CLASS};
  InitCommonControlsEx(&controls);

  MessageLoop loop;
  WindowHost host{instance, loop, &ShowFailure};
  const IniFile iniFile = FindIniFile();
  const std::unique_ptr<RegistryStore> registry = OpenRegistryStore(iniFile);
  SettingsStore settings(*registry, iniFile);
  CommandTable commands;
  ScrivantaRegExpObjectSource regExpObjects;
  const RegExpObjectEngine regExpObjectEngine(regExpObjects);
  const ChosenRegExpEngine regExpEngine(settings, regExpObjectEngine);
  FrmMain mainWindow(host, FindFolders(iniFile), settings, regExpEngine, commands);
  FrmOptions options(host, [&mainWindow] { return mainWindow.handle(); });
  FrmLineDialogs lineDialogs(host, [&mainWindow] { return mainWindow.handle(); });
  FrmSecret secret(host, [&mainWindow] { return mainWindow.handle(); });
  RegisterShellCommands(commands, mainWindow);
  RegisterOptionsCommand(commands, mainWindow, options);
  FrmPrintDialogs printDialogs([&mainWindow] { return mainWindow.handle(); }, mainWindow.richBox());
  RegisterPrintCommands(commands, printDialogs);
  RegisterLineCommands(commands, lineDialogs);
  RegisterCryptoCommands(commands, secret);
  FrmSearchDialogs searchDialogs(host, [&mainWindow] { return mainWindow.handle(); });
  RegisterSearchCommands(commands, searchDialogs);
  mainWindow.Open(commandLine);
  if (window != nullptr) {
    window->store(mainWindow.handle());
  }
  return loop.Run();
}

}  // namespace scrivanta
