#include "crypto/EncryptedFile.h"

#include <optional>

#include "crypto/RijndaelText.h"
#include "crypto/Sealing.h"
#include "crypto/WorkingCopy.h"
#include "text/AtomicFile.h"
#include "text/Encoding.h"
#include "text/PathParts.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

std::string AsRichText(std::string_view ascii) {
  std::string text = "{\\rtf1\\ansi ";
  for (const char c : ascii) {
    text += c == '\n' ? "\\par\r\n" : std::string(c == '\r' ? 0 : 1, c);
  }
  return text + "}";
}

}  // namespace

void SaveEncrypted(Workbench& workbench, const std::filesystem::path& target, const SecretKey& key) {
  const std::u16string text = workbench.editor().Text();
  std::u16string ciphertext;
  std::optional<WorkingCopy> copy;
  if (key.cipher == Cipher::kSealed) {
    ciphertext = SealText(text, key.text);
  } else {
    ciphertext = EncryptWithDigits(text, key.text);
    copy.emplace(workbench.folders().temporary / kPlaintextCopyName);
    copy->Write(Encode(Encoding::kGbk, text));
  }
  const std::string bytes = Encode(Encoding::kGbk, ciphertext);
  ReplaceFileContent(target, IsRichTextPath(TextOfPath(target)) ? AsRichText(bytes) : bytes);
}

}  // namespace scrivanta
