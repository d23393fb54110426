// What FrmSecret does, without its window: it asks for a key of digits and for the cipher.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "shell/workbench/Prompts.h"
#include "text/Interface.h"

namespace scrivanta {

// Lives no longer than the command that has asked for it.
struct SecretKey {
  std::u16string digits;
  bool useRijndael = false;  // else the numeric cipher
};

// The text box Text1, the check box, and the window around them.
class SecretView : public Interface {
 public:
  virtual std::u16string KeyText() const = 0;
  virtual void ClearKeyText() = 0;
  virtual bool RijndaelChecked() const = 0;
  virtual void FocusKeyText() = 0;
  virtual void CloseView() = 0;
};

class SecretDialog {
 public:
  enum class Ciphers {
    kBoth,
    kRijndaelOnly,  // for files: the check box is checked, and disabled
  };

  SecretDialog(Prompts& prompts, Ciphers ciphers) : prompts_(prompts), ciphers_(ciphers) {}

  Ciphers ciphers() const noexcept { return ciphers_; }
  // The button Command1: takes the key and closes the window; a text that is not all digits is told and asked again.
  void Accept(SecretView& view);
  // The button Command2, and every other way to close the window.
  void Cancel(SecretView& view);

  // Nothing unless a key has been accepted.
  const std::optional<SecretKey>& key() const noexcept { return key_; }

 private:
  Prompts& prompts_;
  Ciphers ciphers_;
  std::optional<SecretKey> key_;
};

// Says in plain words what the ciphers protect against.
inline constexpr std::u16string_view kSecretToolTip =
    u"密钥只能是数字，请记牢：忘了就再也解不开。\r\n"
    u"不勾选：数字加密，只防别人一眼看见，懂行的人几分钟就能解开。\r\n"
    u"勾选：Rijndael（AES）加密，数字越长越难猜，要紧的内容至少用二十位没有规律的数字，三十二位以后的不起作用。"
    u"相同的内容看得出相同，密文被人改动不会被发现，密钥输错也可能没有提示。";

}  // namespace scrivanta
