#include "crypto/EncryptedFile.h"

#include "crypto/RijndaelText.h"
#include "crypto/WorkingCopy.h"
#include "text/AtomicFile.h"
#include "text/Encoding.h"
#include "text/PathParts.h"
#include "text/PlatformFile.h"

namespace scrivanta {

void SaveEncrypted(Workbench& workbench, const std::filesystem::path& target, std::u16string_view key) {
  const std::u16string text = workbench.editor().Text();
  const std::u16string ciphertext = EncryptWithDigits(text, key);
  const WorkingCopy copy(workbench.folders().temporary / kPlaintextCopyName);
  copy.Write(Encode(Encoding::kGbk, text));
  std::string bytes = Encode(Encoding::kGbk, ciphertext);
  if (IsRichTextPath(TextOfPath(target))) {
    bytes = "{\\rtf1\\ansi " + bytes + "}";
  }
  ReplaceFileContent(target, bytes);
}

}  // namespace scrivanta
