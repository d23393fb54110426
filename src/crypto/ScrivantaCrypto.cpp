#include "crypto/ScrivantaCrypto.h"

#include "crypto/CryptoCommands.h"
#include "crypto/FrmSecret.h"

namespace scrivanta {

std::unique_ptr<Subsystem> OpenCrypto(const SubsystemHost& host) {
  auto subsystem = std::make_unique<SubsystemOf<FrmSecret>>(host.windows, host.mainWindow);
  RegisterCryptoCommands(host.commands, subsystem->dialogs);
  return subsystem;
}

}  // namespace scrivanta
