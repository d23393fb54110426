// The window of the encrypting commands, as the handlers see it: FrmSecret on the real desktop, a script in tests.
#pragma once

#include "crypto/SecretDialog.h"
#include "text/Interface.h"

namespace scrivanta {

class CryptoDialogs : public Interface {
 public:
  // FrmSecret, modal: comes back when it is closed.
  virtual void ShowSecret(SecretDialog& dialog) = 0;
};

}  // namespace scrivanta
