#include "crypto/CryptoCommands.h"

#include <functional>
#include <optional>
#include <utility>

#include "crypto/EncryptedFile.h"
#include "crypto/NumericCipher.h"
#include "crypto/RijndaelText.h"
#include "crypto/Sealing.h"
#include "shell/workbench/FailureMessage.h"
#include "shell/workbench/ReplaceSelected.h"
#include "text/Bytes.h"
#include "text/DecimalText.h"
#include "text/ExplainedError.h"
#include "text/PlatformFile.h"
#include "text/SameFile.h"

namespace scrivanta {

namespace {

constexpr std::size_t kMostDigits = kWindowBits / 8;  // that a key has room for

bool HasSelection(const WorkbenchState& state) {
  return state.hasSelection;
}

std::optional<SecretKey> AskForKey(Workbench& workbench, CryptoDialogs& dialogs, SecretRequest request) {
  SecretDialog dialog(workbench.prompts(), request);
  dialogs.ShowSecret(dialog);
  return dialog.key();
}

struct KeyAndSelection {
  SecretKey key;
  std::u16string selection;
};

// Nothing when either is missing.
std::optional<KeyAndSelection> AskForKeyToSelection(Workbench& workbench, CryptoDialogs& dialogs, bool isEncrypting) {
  std::u16string selection = workbench.editor().SelectedText();
  std::optional<SecretKey> key =
      AskForKey(workbench, dialogs, {.isEncrypting = isEncrypting, .isSealed = LooksSealed(selection)});
  if (!key || selection.empty()) {
    return std::nullopt;
  }
  return KeyAndSelection{*std::move(key), std::move(selection)};
}

// What of a long key does not count; empty for all others.
std::u16string CutOf(const SecretKey& key) {
  return key.cipher == Cipher::kRijndael && key.text.size() > kMostDigits
             ? u"只有前 " + DecimalText(kMostDigits) + u" 位起作用"
             : u"";
}

void SaveAndRemark(Workbench& workbench, const std::filesystem::path& path, const SecretKey& key) {
  SaveEncrypted(workbench, path, key);
  // What was typed was hidden; its length is one way to notice a slip while the plaintext is still there.
  const std::u16string cut = CutOf(key);
  workbench.ShowStatus(u"已加密保存（密钥 " + DecimalText(key.text.size()) + u" 位" + (cut.empty() ? u"" : u"，") +
                       cut + u"）：" + TextOfPath(path));
}

// Saves a document that is kept in an encrypted file.
DocumentSaver SaverFor(CryptoDialogs& dialogs, std::filesystem::path path) {
  return [&dialogs, path = std::move(path)](Workbench& workbench) {
    const Answer answer =
        workbench.prompts().Ask({.text = u"此文档保存在加密文件里：\r\n" + TextOfPath(path) +
                                         u"\r\n是否加密后存回这个文件？\r\n选“否”则另存为不加密的普通文件。",
                                 .buttons = Buttons::kYesNoCancel,
                                 .icon = Icon::kQuestion});
    if (answer == Answer::kNo) {
      return SaveOutcome::kSaveAsFile;
    }
    const std::optional<SecretKey> key =
        answer == Answer::kYes ? AskForKey(workbench, dialogs, {.isOfFile = true, .isEncrypting = true}) : std::nullopt;
    if (!key) {
      return SaveOutcome::kNotSaved;
    }
    SaveAndRemark(workbench, path, *key);
    workbench.document().MarkUnchanged();
    return SaveOutcome::kSaved;
  };
}

void TellFailure(Workbench& workbench, std::u16string_view what, std::u16string_view details) {
  workbench.prompts().Ask(
      {.text = std::u16string(what) + u"\r\n" + std::u16string(details), .icon = Icon::kCritical, .systemModal = true});
}

constexpr std::u16string_view kErrorOpening = u"Error Opening File";
constexpr std::u16string_view kWrongKey = u"Incorrect Encryption Key";

// Nothing when the file cannot be read, which has been told then.
std::optional<std::u16string> ReadCiphertext(Workbench& workbench, const std::filesystem::path& path) {
  try {
    return workbench.document().TextOfFile(path);
  } catch (const FileError& error) {
    TellFailure(workbench, kErrorOpening, FailureMessage(error).text);
  } catch (const ExplainedError& error) {
    TellFailure(workbench, kErrorOpening, error.chinese());
  }
  return std::nullopt;
}

bool AskWhetherToTakeGarbled(Workbench& workbench) {
  return workbench.prompts().Ask({.text = std::u16string(kWrongKey) +
                                          u"\r\n解出来的内容有乱码，多半是密钥不对，或密文被改动过。仍要这样的内容吗？",
                                  .buttons = Buttons::kYesNo,
                                  .icon = Icon::kCritical,
                                  .defaultAnswer = Answer::kNo,
                                  .systemModal = true}) == Answer::kYes;
}

// Nothing when it is not, or hardly, what was encrypted, which has been told then. How it is told that it is no
// ciphertext at all depends on what was to be done.
std::optional<std::u16string> DecryptRijndael(Workbench& workbench, std::u16string_view ciphertext,
                                              const SecretKey& key,
                                              const std::function<void(std::u16string_view)>& tellNoCiphertext) {
  DecryptedText result = DecryptText(RijndaelKey(PasswordBytes(key.text), kWindowBits), FastestRijndael(), ciphertext);
  switch (result.outcome) {
    case DecryptedText::Outcome::kNotHexadecimal:
      tellNoCiphertext(u"错误：非十六进制数据！");
      return std::nullopt;
    case DecryptedText::Outcome::kNotWholeBlocks:
      tellNoCiphertext(u"密文不完整：长度不是 16 字节的整数倍。");
      return std::nullopt;
    case DecryptedText::Outcome::kNotWhole:
      TellFailure(workbench, kWrongKey, u"解出来的不是当初加密的文字：密钥不对，或密文被改动过。");
      return std::nullopt;
    case DecryptedText::Outcome::kDone:
      break;
  }
  const bool isTaken = !LooksGarbled(result.text) || AskWhetherToTakeGarbled(workbench);
  return isTaken ? std::optional(std::move(result.text)) : std::nullopt;
}

// Nothing when it is not what was sealed under the password, which has been told then.
std::optional<std::u16string> Unseal(Workbench& workbench, std::u16string_view sealed, const SecretKey& key) {
  try {
    return UnsealText(sealed, key.text);
  } catch (const ExplainedError& error) {
    TellFailure(workbench, kWrongKey, error.chinese());
    return std::nullopt;
  }
}

std::u16string Encrypt(std::u16string_view text, const SecretKey& key) {
  switch (key.cipher) {
    case Cipher::kNumeric:
      return TextEncrypt(text, NumericKey(key.text));
    case Cipher::kRijndael:
      return EncryptWithDigits(text, key.text);
    case Cipher::kSealed:
      break;
  }
  return SealText(text, key.text);
}

std::optional<std::u16string> Decrypt(Workbench& workbench, std::u16string_view ciphertext, const SecretKey& key,
                                      const std::function<void(std::u16string_view)>& tellNoCiphertext) {
  switch (key.cipher) {
    case Cipher::kNumeric:
      return TextDecrypt(ciphertext, NumericKey(key.text));
    case Cipher::kRijndael:
      return DecryptRijndael(workbench, ciphertext, key, tellNoCiphertext);
    case Cipher::kSealed:
      break;
  }
  return Unseal(workbench, ciphertext, key);
}

// Put the selection's ciphertext, or plaintext, in its place. Without a key or a selection nothing happens; what cannot
// be decrypted stays selected as it is.
void mnuEncryptSelectedText(Workbench& workbench, CryptoDialogs& dialogs) {
  const std::optional<KeyAndSelection> given = AskForKeyToSelection(workbench, dialogs, true);
  if (!given) {
    return;
  }
  const auto& [key, selection] = *given;
  ReplaceSelected(workbench.editor(), Encrypt(selection, key));
  if (const std::u16string cut = CutOf(key); !cut.empty()) {
    workbench.ShowStatus(u"密钥 " + DecimalText(key.text.size()) + u" 位，" + cut);
  }
}

void mnuDeEncryptSelectedText(Workbench& workbench, CryptoDialogs& dialogs) {
  const std::optional<KeyAndSelection> given = AskForKeyToSelection(workbench, dialogs, false);
  if (!given) {
    return;
  }
  const auto& [key, selection] = *given;
  const auto tell = [&workbench](std::u16string_view reason) {
    workbench.prompts().Ask({.text = std::u16string(reason)});
  };
  const std::optional<std::u16string> text = Decrypt(workbench, selection, key, tell);
  if (text) {
    ReplaceSelected(workbench.editor(), *text);
  } else {
    workbench.ShowStatus(u"没有解密：选中的不是完整的密文，或密钥不对");
  }
}

// Saves the document's text encrypted. The editor keeps the plaintext. A document that has a file of its own stays
// what it is, changed or not; one that has none, or is saved onto its own file, is kept in the encrypted file from
// then on: saving it asks, and encrypts again.
void mnuSaveEncryptFile(Workbench& workbench, CryptoDialogs& dialogs) {
  const std::filesystem::path chosen = workbench.prompts().AskForFile({.filter = u"*.txt"});
  const std::optional<std::filesystem::path> path =
      chosen.empty() ? std::nullopt : workbench.document().ConfirmTarget(chosen);
  if (!path) {
    return;
  }
  const std::optional<SecretKey> key = AskForKey(workbench, dialogs, {.isOfFile = true, .isEncrypting = true});
  if (!key) {
    return;
  }
  const std::filesystem::path own = workbench.document().Path();
  const bool becomesEncrypted = own.empty() || IsSameFile(own, *path);
  SaveAndRemark(workbench, *path, *key);
  if (becomesEncrypted) {
    workbench.document().SaveThrough(SaverFor(dialogs, *path));
  }
}

// Shows a decrypted file as a new document that saving encrypts again. A failure is told, and the document stays.
void mnuOpenEncryptedFile(Workbench& workbench, CryptoDialogs& dialogs) {
  if (!workbench.document().OfferToSave()) {
    return;
  }
  const std::filesystem::path path = workbench.prompts().AskForFile({.filter = u"*.txt;*.rtf"});
  if (path.empty()) {
    return;
  }
  const std::optional<std::u16string> ciphertext = ReadCiphertext(workbench, path);
  if (!ciphertext) {
    return;
  }
  const std::optional<SecretKey> key =
      AskForKey(workbench, dialogs, {.isOfFile = true, .isSealed = LooksSealed(*ciphertext)});
  if (!key) {
    return;
  }
  const auto tell = [&workbench](std::u16string_view reason) { TellFailure(workbench, kErrorOpening, reason); };
  const std::optional<std::u16string> text = Decrypt(workbench, *ciphertext, *key, tell);
  if (text && workbench.document().MayBeReplaced()) {
    workbench.document().ShowNew(*text, SaverFor(dialogs, path));
  }
}

}  // namespace

void RegisterCryptoCommands(CommandTable& table, CryptoDialogs& dialogs) {
  using Handler = void (*)(Workbench&, CryptoDialogs&);
  const auto with = [&dialogs](Handler handler) {
    return [handler, &dialogs](Workbench& workbench) { handler(workbench, dialogs); };
  };
  table.Add("mnuEncryptSelectedText", {with(mnuEncryptSelectedText), &HasSelection});
  table.Add("mnuDeEncryptSelectedText", {with(mnuDeEncryptSelectedText), &HasSelection});
  table.Add("mnuSaveEncryptFile", {with(mnuSaveEncryptFile)});
  table.Add("mnuOpenEncryptedFile", {with(mnuOpenEncryptedFile)});
}

}  // namespace scrivanta
