#include "crypto/EncryptedFile.h"

#include "crypto/RijndaelText.h"
#include "crypto/WorkingCopy.h"
#include "crypto/cRijndael.h"
#include "text/AtomicFile.h"
#include "text/Encoding.h"
#include "text/PathParts.h"
#include "text/PlatformFile.h"

namespace scrivanta {

void SaveEncrypted(Workbench& workbench, const std::filesystem::path& target, std::u16string_view key) {
  constexpr int kBits = 256;
  const std::u16string text = workbench.editor().Text();
  RefuseNul(text);
  const WorkingCopy copy(workbench.folders().temporary / kPlaintextCopyName);
  copy.Write(Encode(Encoding::kGbk, text));
  std::string bytes = Encode(Encoding::kGbk, cRijndael(workbench.prompts()).StringEncrypt(text, key, kBits, kBits));
  if (IsRichTextPath(TextOfPath(target))) {
    bytes = "{\\rtf1\\ansi " + bytes + "}";
  }
  ReplaceFileContent(target, bytes);
}

}  // namespace scrivanta
