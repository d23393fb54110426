#include "ScrivantaApp.h"

#include <commctrl.h>

#include <memory>

#include "ScrivantaSubsystems.h"
#include "regexp/ScrivantaRegExpObject.h"
#include "shell/settings/PortableStore.h"
#include "shell/settings/ScrivantaRegistry.h"
#include "shell/settings/SettingsStore.h"
#include "shell/window/ChosenRegExpEngine.h"
#include "shell/window/FrmMain.h"
#include "shell/window/FrmOptions.h"
#include "shell/window/ScrivantaDesktop.h"
#include "shell/window/ShellCommands.h"
#include "shell/window/View.h"
#include "shell/workbench/CommandTable.h"
#include "win/Colours.h"
#include "win/ComApartment.h"
#include "win/MessageLoop.h"
#include "win/RichEdit.h"
#include "win/SystemFolders.h"

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
  CloseLibrarySearch();
  // What was copied from the edit box lies on the clipboard as an object of this library, so the library goes last.
  const OwnedLibrary richEdit = LoadRichEditLibrary();
  const ComApartment apartment;
  INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_WIN95_CLASSES | ICC_BAR_CLASSES | ICC_PROGRESS_CLASS};
  InitCommonControlsEx(&controls);

  MessageLoop loop;
  Colours colours;
  WindowHost host{instance, loop, colours, &ShowFailure};
  const IniFile iniFile = FindIniFile();
  const std::unique_ptr<RegistryStore> registry = OpenRegistryStore(iniFile);
  SettingsStore settings(*registry, iniFile);
  CommandTable commands;
  ScrivantaRegExpObjectSource regExpObjects;
  const RegExpObjectEngine regExpObjectEngine(regExpObjects);
  const ChosenRegExpEngine regExpEngine(settings, regExpObjectEngine);
  FrmMain mainWindow(host, FindFolders(iniFile), settings, regExpEngine, commands);
  FrmOptions options(host, [&mainWindow] { return mainWindow.handle(); });
  RegisterShellCommands(commands, mainWindow);
  RegisterViewCommands(commands, mainWindow);
  RegisterOptionsCommand(commands, mainWindow, options);
  SubsystemServices services;
  const auto subsystems = OpenSubsystems({.windows = host,
                                          .commands = commands,
                                          .editBox = mainWindow.editBox(),
                                          .services = services,
                                          .folders = mainWindow.folders(),
                                          .mainWindow = [&mainWindow] { return mainWindow.handle(); },
                                          .editBoxWindow = [&mainWindow] { return mainWindow.editBoxHandle(); }});
  mainWindow.Open(commandLine);
  if (window != nullptr) {
    window->store(mainWindow.handle());
  }
  return loop.Run();
}

}  // namespace scrivanta
