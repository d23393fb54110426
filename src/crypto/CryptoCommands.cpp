#include "crypto/CryptoCommands.h"

#include "crypto/CipherHandlers.h"

namespace scrivanta {

namespace {

using Handler = void (*)(Workbench&, CryptoDialogs&);

bool HasSelection(const WorkbenchState& state) {
  return state.hasSelection;
}

}  // namespace

void RegisterCryptoCommands(CommandTable& table, CryptoDialogs& dialogs) {
  const auto with = [&dialogs](Handler handler) {
    return [handler, &dialogs](Workbench& workbench) { handler(workbench, dialogs); };
  };
  table.Add("mnuEncryptSelectedText", {with(mnuEncryptSelectedText), HasSelection});
  table.Add("mnuDeEncryptSelectedText", {with(mnuDeEncryptSelectedText), HasSelection});
  table.Add("mnuSaveEncryptFile", {with(mnuSaveEncryptFile)});
  table.Add("mnuOpenEncryptedFile", {with(mnuOpenEncryptedFile)});
}

}  // namespace scrivanta
