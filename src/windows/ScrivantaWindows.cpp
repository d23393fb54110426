#include "windows/ScrivantaWindows.h"

#include "windows/FrmWindowsDialogs.h"
#include "windows/WindowsCommands.h"
#include "windows/desk/ScrivantaWindowDesk.h"
#include "windows/input/ScrivantaInputDevice.h"

namespace scrivanta {

namespace {

struct Windows final : Subsystem {
  explicit Windows(const SubsystemHost& host) : dialogs(host.windows, host.mainWindow) {}

  FrmWindowsDialogs dialogs;
  ScrivantaInputDevice input;
  ScrivantaWindowDesk desk;
};

}  // namespace

std::unique_ptr<Subsystem> OpenWindows(const SubsystemHost& host) {
  auto subsystem = std::make_unique<Windows>(host);
  RegisterWindowsCommands(host.commands, subsystem->dialogs,
                          {.places = subsystem->dialogs,
                           .input = subsystem->input,
                           .makeStopKey = [] { return std::make_unique<ScrivantaStopKey>(); },
                           .desk = subsystem->desk});
  return subsystem;
}

}  // namespace scrivanta
