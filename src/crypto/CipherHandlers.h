// The encrypting commands of the menu. A handler is named after its menu control.
#pragma once

#include "crypto/CryptoDialogs.h"
#include "shell/workbench/Workbench.h"

namespace scrivanta {

// Put the selection's ciphertext, or plaintext, in its place. Without a key or a selection nothing happens; what cannot
// be decrypted stays selected as it is. Throw ExplainedError for what the cipher cannot take; the document is then as
// it was.
void mnuEncryptSelectedText(Workbench& workbench, CryptoDialogs& dialogs);
void mnuDeEncryptSelectedText(Workbench& workbench, CryptoDialogs& dialogs);

// Saves the document's text encrypted. The editor keeps the plaintext. A document that has a file of its own stays
// what it is, changed or not; one that has none, or is saved onto its own file, is kept in the encrypted file from
// then on: saving it asks, and encrypts again. Throws FileError, ExplainedError; the target is then as it was.
void mnuSaveEncryptFile(Workbench& workbench, CryptoDialogs& dialogs);
// Shows a decrypted file as a new document that saving encrypts again. A failure is told, and the document stays.
void mnuOpenEncryptedFile(Workbench& workbench, CryptoDialogs& dialogs);

}  // namespace scrivanta
