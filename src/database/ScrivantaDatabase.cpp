#include "database/ScrivantaDatabase.h"

#include "database/DatabaseCommands.h"
#include "database/FrmDatabase.h"

namespace scrivanta {

namespace {

class Dialogs final : public DatabaseDialogs {
 public:
  Dialogs(WindowHost& host, std::function<HWND()> owner) : host_(host), owner_(std::move(owner)) {}

  void ShowDatabase(DatabaseDialog& dialog) override {
    FrmDatabase window(host_, dialog);
    window.ShowModal(owner_());
  }

 private:
  WindowHost& host_;
  std::function<HWND()> owner_;
};

}  // namespace

std::unique_ptr<Subsystem> OpenDatabase(const SubsystemHost& host) {
  auto subsystem = std::make_unique<SubsystemOf<Dialogs>>(host.windows, host.mainWindow);
  RegisterDatabaseCommands(host.commands, subsystem->dialogs);
  return subsystem;
}

}  // namespace scrivanta
