// The document's text in an encrypted file.
#pragma once

#include <filesystem>

#include "crypto/SecretDialog.h"
#include "shell/workbench/Workbench.h"

namespace scrivanta {

// The working file in the temporary folder.
inline constexpr std::u16string_view kPlaintextCopyName = u"EncryptSelectedTextTmpFile.txt";

// Writes the ciphertext beside the target and replaces it; rich text around it when the name says so. With a key of
// digits a copy of the plaintext lies in the temporary folder while that lasts, and is overwritten and deleted whatever
// happens. Throws FileError, ExplainedError; the target is then as it was.
void SaveEncrypted(Workbench& workbench, const std::filesystem::path& target, const SecretKey& key);

}  // namespace scrivanta
