// The enciphering commands of the menu. A handler is named after its menu control.
#pragma once

#include "crypto/CryptoDialogs.h"
#include "shell/Workbench.h"

namespace scrivanta {

// Put the selection's ciphertext, or plaintext, in its place. Without a key or a selection nothing happens; what cannot
// be deciphered stays selected as it is. Throw ExplainedError for what the cipher cannot take; the document is then as
// it was.
void mnuEncryptSelectedText(Workbench& workbench, CryptoDialogs& dialogs);
void mnuDeEncryptSelectedText(Workbench& workbench, CryptoDialogs& dialogs);

// Saves the document's text enciphered. The editor keeps the plaintext. A document that has a file of its own stays
// what it is, changed or not; one that has none, or is saved onto its own file, is kept in the enciphered file from
// then on: saving it asks, and enciphers again. Throws FileError, ExplainedError; the target is then as it was.
void mnuSaveEncryptFile(Workbench& workbench, CryptoDialogs& dialogs);
// Shows a deciphered file as a new document that saving enciphers again. A failure is told, and the document stays.
void mnuOpenEncryptedFile(Workbench& workbench, CryptoDialogs& dialogs);

}  // namespace scrivanta
