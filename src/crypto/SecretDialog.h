// What FrmSecret does, without its window: it asks for the cipher and for its key, of digits or any password.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "shell/workbench/Prompts.h"
#include "text/Interface.h"

namespace scrivanta {

enum class Cipher {
  kNumeric,
  kRijndael,
  kSealed,  // under a password of any characters, see Sealing.h; the keys of the others are digits
};

// Lives no longer than the command that has asked for it.
struct SecretKey {
  std::u16string text;
  Cipher cipher = Cipher::kNumeric;
};

// What is to be asked.
struct SecretRequest {
  bool isOfFile = false;      // the check box of Rijndael is checked then, and disabled
  bool isEncrypting = false;  // a password is typed twice then
  bool isSealed = false;      // what is to be decrypted is sealed: the check box of passwords is checked at first
};

// The text boxes, the check boxes, and the window around them.
class SecretView : public Interface {
 public:
  virtual std::u16string KeyText() const = 0;
  virtual void ClearKeyText() = 0;
  virtual std::u16string RepeatedText() const = 0;
  virtual bool RijndaelChecked() const = 0;
  virtual bool SealedChecked() const = 0;
  virtual void FocusKeyText() = 0;
  virtual void CloseView() = 0;
};

class SecretDialog {
 public:
  SecretDialog(Prompts& prompts, SecretRequest request) : prompts_(prompts), request_(request) {}

  const SecretRequest& request() const noexcept { return request_; }
  // The button Command1: takes the key and closes the window; one that the cipher cannot have is told and asked again.
  void Accept(SecretView& view);
  // The button Command2, and every other way to close the window.
  void Cancel(SecretView& view);

  // Nothing unless a key has been accepted.
  const std::optional<SecretKey>& key() const noexcept { return key_; }

 private:
  // Why the key cannot be taken; empty when it can.
  std::u16string FaultOf(const SecretView& view) const;

  Prompts& prompts_;
  SecretRequest request_;
  std::optional<SecretKey> key_;
};

// Says in plain words what the ciphers protect against.
inline constexpr std::u16string_view kSecretToolTip =
    u"密钥只能是数字，请记牢：忘了就再也解不开。\r\n"
    u"不勾选：数字加密，只防别人一眼看见，懂行的人几分钟就能解开。\r\n"
    u"勾选：Rijndael（AES）加密，数字越长越难猜，要紧的内容至少用二十位没有规律的数字，三十二位以后的不起作用。"
    u"相同的内容看得出相同，密文被人改动不会被发现，密钥输错也可能没有提示。\r\n"
    u"用口令加密：要紧的内容用它。口令可以是任何字符，越长越好；口令输错、密文被改动都会提示。";

}  // namespace scrivanta
