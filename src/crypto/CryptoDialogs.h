// The window of the enciphering commands, as the handlers see it: FrmSecret on the real desktop, a script in tests.
#pragma once

#include "crypto/SecretDialog.h"

namespace scrivanta {

class CryptoDialogs {
 public:
  CryptoDialogs() = default;
  CryptoDialogs(const CryptoDialogs&) = delete;
  CryptoDialogs& operator=(const CryptoDialogs&) = delete;
  virtual ~CryptoDialogs() = default;

  // FrmSecret, modal: comes back when it is closed.
  virtual void ShowSecret(SecretDialog& dialog) = 0;
};

}  // namespace scrivanta
