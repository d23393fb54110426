#include <deque>
#include <filesystem>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "crypto/CryptoCommands.h"
#include "crypto/services/cRijndael.h"
#include "support/ScriptedWorkbench.h"
#include "text/Encoding.h"

namespace scrivanta {
namespace {

using testing::ScriptedPrompts;
using testing::ScriptedWorkbench;
using testing::TemporaryFolder;

// The key box: what is typed into it, and which button is pressed.
class ScriptedSecret final : public CryptoDialogs, private SecretView {
 public:
  struct Script {
    std::u16string typed = {};
    bool rijndael = false;
    bool cancel = false;
    std::u16string repeated = {};
    bool sealed = false;
  };

  void ShowSecret(SecretDialog& dialog) override {
    ++shown;
    lastRequest = dialog.request();
    ASSERT_FALSE(script.empty()) << "nobody expected the key box";
    const Script next = script.front();
    script.pop_front();
    text_ = next.typed;
    repeated_ = next.repeated;
    rijndael_ = next.rijndael;
    sealed_ = next.sealed;
    closed_ = false;
    next.cancel ? dialog.Cancel(*this) : dialog.Accept(*this);
    if (!closed_) {
      EXPECT_TRUE(focused_);
      dialog.Cancel(*this);
    }
    EXPECT_EQ(text_, u"") << "the key box keeps no key";
  }

  std::deque<Script> script;
  int shown = 0;
  SecretRequest lastRequest;

 private:
  std::u16string KeyText() const override { return text_; }
  void ClearKeyText() override { text_.clear(); }
  std::u16string RepeatedText() const override { return repeated_; }
  bool RijndaelChecked() const override { return rijndael_; }
  bool SealedChecked() const override { return sealed_; }
  void FocusKeyText() override { focused_ = true; }
  void CloseView() override { closed_ = true; }

  std::u16string text_;
  std::u16string repeated_;
  bool rijndael_ = false;
  bool sealed_ = false;
  bool focused_ = false;
  bool closed_ = false;
};

class CipherHandlers : public ::testing::Test {
 protected:
  CipherHandlers() { RegisterCryptoCommands(table_, dialogs_); }

  void Run(std::string_view command) { EXPECT_TRUE(table_.Run(command, workbench_)); }
  void OpenSelected(std::u16string_view text) { workbench_.editor().Open(text, {{0}, text.size()}); }
  std::u16string LastMessage() {
    return workbench_.prompts().messages.empty() ? u"" : workbench_.prompts().messages.back().text;
  }
  std::u16string Rijndael(std::u16string_view text, std::u16string_view key) {
    return cRijndael(workbench_.prompts()).StringEncrypt(text, key, 256, 256);
  }
  std::filesystem::path WorkingCopyPath() { return workbench_.folders().temporary / "EncryptSelectedTextTmpFile.txt"; }

  TemporaryFolder folder_;
  ScriptedSecret dialogs_;
  ScriptedWorkbench workbench_;
  CommandTable table_;
};

TEST_F(CipherHandlers, EncryptTheSelectionBothWays) {
  const std::u16string text = u"中文 text\r\n第二行";
  for (const bool rijndael : {false, true}) {
    workbench_.editor().Open(u"[" + text + u"]", {{1}, text.size()});
    dialogs_.script = {{u"20240229", rijndael}, {u"20240229", rijndael}};
    Run("mnuEncryptSelectedText");
    const std::u16string encrypted = workbench_.editor().Text();
    EXPECT_EQ(encrypted.find(u"text"), std::u16string::npos);
    EXPECT_EQ(workbench_.editor().changes, 1);
    // The ciphertext is selected.
    Run("mnuDeEncryptSelectedText");
    EXPECT_EQ(workbench_.editor().Text(), u"[" + text + u"]");
  }
  EXPECT_TRUE(workbench_.prompts().messages.empty());
}

TEST_F(CipherHandlers, SealUnderAPasswordThatIsTypedTwice) {
  const std::u16string text = u"中文 \U0001F600\r\n\xDC81";
  workbench_.editor().Open(u"[" + text + u"]", {{1}, text.size()});
  dialogs_.script = {{.typed = u"口令 1", .repeated = u"口令 2", .sealed = true}};
  Run("mnuEncryptSelectedText");
  EXPECT_EQ(LastMessage(), u"两次输入的口令不一样。");
  dialogs_.script = {{.sealed = true}};
  Run("mnuEncryptSelectedText");
  EXPECT_EQ(LastMessage(), u"请输入口令。");
  EXPECT_EQ(workbench_.editor().changes, 0);
  dialogs_.script = {{.typed = u"口令 1", .repeated = u"口令 1", .sealed = true}};
  Run("mnuEncryptSelectedText");
  EXPECT_FALSE(dialogs_.lastRequest.isSealed);
  const std::u16string sealed = workbench_.editor().Text();
  EXPECT_TRUE(sealed.starts_with(u"[-----BEGIN ") && sealed.ends_with(u"-----]"));

  workbench_.editor().SetSelection({{1}, sealed.size() - 2});
  dialogs_.script = {{.typed = u"口令 2", .sealed = true}, {.typed = u"口令 1", .sealed = true}};
  Run("mnuDeEncryptSelectedText");
  EXPECT_TRUE(dialogs_.lastRequest.isSealed);
  EXPECT_EQ(LastMessage(), u"Incorrect Encryption Key\r\n口令不对，或密文被改动过。");
  EXPECT_EQ(workbench_.editor().Text(), sealed);
  Run("mnuDeEncryptSelectedText");
  EXPECT_EQ(workbench_.editor().Text(), u"[" + text + u"]");
}

TEST_F(CipherHandlers, KeepADocumentInASealedFile) {
  for (const std::string_view name : {"letter.txt", "letter.rtf"}) {
    const std::filesystem::path file = folder_.path() / name;
    workbench_.editor().Open(u"机密");
    workbench_.prompts().Will(file);
    dialogs_.script = {{.typed = u"p", .repeated = u"p", .sealed = true}};
    Run("mnuSaveEncryptFile");
    std::u16string saved = Decode(Encoding::kGbk, ReadWholeFile(file));
    if (name.ends_with(".rtf")) {
      EXPECT_TRUE(saved.starts_with(u"{\\rtf1\\ansi -----BEGIN") && saved.ends_with(u"-----}"));
      saved = saved.substr(12, saved.size() - 13);
      for (std::size_t at = 0; (at = saved.find(u"\\par")) != std::u16string::npos;) {
        saved.erase(at, 4);
      }
    }
    workbench_.document().texts[file] = saved;
    workbench_.editor().Open(u"other");
    workbench_.prompts().Will(file);
    dialogs_.script = {{.typed = u"p", .sealed = true}};
    Run("mnuOpenEncryptedFile");
    EXPECT_TRUE(dialogs_.lastRequest.isSealed && dialogs_.lastRequest.isOfFile);
    EXPECT_EQ(workbench_.editor().Text(), u"机密");
  }
}

TEST_F(CipherHandlers, TellWhatOfALongKeyDoesNotCount) {
  const std::u16string longKey(33, u'1');
  OpenSelected(u"A");
  dialogs_.script = {{longKey, true}};
  Run("mnuEncryptSelectedText");
  EXPECT_EQ(workbench_.editor().Text(), Rijndael(u"A", longKey.substr(1)));
  EXPECT_EQ(workbench_.status, u"密钥 33 位，只有前 32 位起作用");
  workbench_.status.clear();
  OpenSelected(u"A");
  dialogs_.script = {{longKey, false}, {longKey.substr(1), true}};
  Run("mnuEncryptSelectedText");
  Run("mnuEncryptSelectedText");
  EXPECT_EQ(workbench_.status, u"");
}

TEST_F(CipherHandlers, MakeTheCiphertextsOfTheirCiphers) {
  OpenSelected(u"A");
  dialogs_.script = {{u"5"}};
  Run("mnuEncryptSelectedText");
  EXPECT_EQ(workbench_.editor().Text(), u"101");
  OpenSelected(u"A");
  dialogs_.script = {{u"5", true}};
  Run("mnuEncryptSelectedText");
  EXPECT_EQ(workbench_.editor().Text(), Rijndael(u"A", u"5"));
}

TEST_F(CipherHandlers, DoNothingWithoutAKeyOrASelection) {
  for (const std::string_view command : {"mnuEncryptSelectedText", "mnuDeEncryptSelectedText"}) {
    OpenSelected(u"79");
    dialogs_.script = {{u"12", false, true}};
    Run(command);
    workbench_.editor().SetSelection({});
    dialogs_.script = {{u"12"}};
    Run(command);
    EXPECT_EQ(workbench_.editor().changes, 0);
    EXPECT_FALSE(table_.IsAvailable(command, {}));
    EXPECT_TRUE(table_.IsAvailable(command, {.hasSelection = true}));
  }
  EXPECT_TRUE(workbench_.prompts().messages.empty());
}

TEST_F(CipherHandlers, RefuseKeysThatAreNoDigits) {
  for (const std::u16string_view typed : {u"", u"12a", u" 12", u"-1", u"1.5", u"１２"}) {
    OpenSelected(u"text");
    dialogs_.script = {{std::u16string(typed)}};
    Run("mnuEncryptSelectedText");
    EXPECT_EQ(LastMessage(), u"非数字！");
    EXPECT_EQ(workbench_.prompts().messages.back().icon, Icon::kCritical);
    EXPECT_TRUE(workbench_.prompts().messages.back().systemModal);
    EXPECT_EQ(workbench_.editor().changes, 0);
  }
}

TEST_F(CipherHandlers, RefuseWhatTheNumericCipherCannotTake) {
  OpenSelected(u"text");
  dialogs_.script = {{u"99999999999"}};
  Run("mnuEncryptSelectedText");
  EXPECT_TRUE(LastMessage().starts_with(u"密钥太大："));
  OpenSelected(u"text \U0001F600");
  dialogs_.script = {{u"12"}, {u"12", true}};
  Run("mnuEncryptSelectedText");
  EXPECT_TRUE(LastMessage().starts_with(u"第 6 个字符“\U0001F600”不在 GBK 字符集中"));
  EXPECT_EQ(workbench_.editor().changes, 0);
  Run("mnuEncryptSelectedText");
  EXPECT_EQ(workbench_.editor().changes, 1) << "the other cipher takes it";
}

TEST_F(CipherHandlers, LeaveASelectionThatIsNoCiphertext) {
  struct Case {
    std::u16string_view selection;
    bool rijndael;
    std::u16string_view message;
  };
  const Case cases[] = {
      {u"no numbers", false, u""},
      {u"79\r\n76", false, u""},
      {u"xyz", true, u"错误：非十六进制数据！"},
      {u"00 11 22", true, u"密文不完整：长度不是 16 字节的整数倍。"},
  };
  for (const Case& c : cases) {
    OpenSelected(c.selection);
    workbench_.prompts().messages.clear();
    workbench_.status.clear();
    dialogs_.script = {{u"12", c.rijndael}};
    Run("mnuDeEncryptSelectedText");
    EXPECT_EQ(workbench_.editor().Text(), c.selection);
    EXPECT_EQ(workbench_.editor().changes, 0);
    EXPECT_EQ(LastMessage(), c.message);
    EXPECT_FALSE(workbench_.status.empty());
  }
}

TEST_F(CipherHandlers, SaveEncryptedAndKeepThePlaintext) {
  const std::u16string text = u"机密 \U0001F600\r\ntext";
  OpenSelected(text);
  workbench_.document().changed = true;
  workbench_.prompts().Will(folder_.path() / "letter");
  dialogs_.script = {{u"123456"}};
  Run("mnuSaveEncryptFile");
  EXPECT_TRUE(dialogs_.lastRequest.isOfFile);
  EXPECT_EQ(workbench_.prompts().files.back().filter, u"*.txt");
  EXPECT_EQ(Decode(Encoding::kGbk, ReadWholeFile(folder_.path() / "letter.Txt")), Rijndael(text, u"123456"));
  EXPECT_EQ(workbench_.editor().Text(), text);
  EXPECT_EQ(workbench_.editor().changes, 0);
  EXPECT_FALSE(workbench_.document().changed);
  EXPECT_FALSE(std::filesystem::exists(WorkingCopyPath()));
  EXPECT_TRUE(workbench_.document().saver) << "it is kept in the encrypted file now";
}

TEST_F(CipherHandlers, LeaveADocumentAloneThatHasAFileOfItsOwn) {
  OpenSelected(u"text");
  workbench_.document().path = folder_.Put("own.txt", "old");
  workbench_.document().changed = true;
  workbench_.prompts().Will(folder_.path() / "copy.txt");
  dialogs_.script = {{u"1"}, {u"1"}};
  Run("mnuSaveEncryptFile");
  EXPECT_EQ(workbench_.document().path, folder_.path() / "own.txt");
  EXPECT_TRUE(workbench_.document().changed) << "its own file has not got the changes";
  EXPECT_FALSE(workbench_.document().saver);
  // Onto its own file it is no plain file any more.
  workbench_.prompts().Will(folder_.path() / "own.txt");
  Run("mnuSaveEncryptFile");
  EXPECT_EQ(workbench_.document().path, "");
  EXPECT_TRUE(workbench_.document().saver);
}

TEST_F(CipherHandlers, SaveNothingWhenCalledOff) {
  OpenSelected(u"text");
  workbench_.document().changed = true;
  workbench_.prompts().Will(std::filesystem::path());
  Run("mnuSaveEncryptFile");
  EXPECT_EQ(dialogs_.shown, 0);
  workbench_.prompts().Will(folder_.path() / "letter.txt");
  workbench_.document().targetIsFine = false;
  Run("mnuSaveEncryptFile");
  EXPECT_EQ(dialogs_.shown, 0) << "what would be replaced stays";
  workbench_.document().targetIsFine = true;
  workbench_.prompts().Will(folder_.path() / "letter.txt");
  dialogs_.script = {{u"", false, true}};
  Run("mnuSaveEncryptFile");
  EXPECT_FALSE(std::filesystem::exists(folder_.path() / "letter.txt"));
  EXPECT_TRUE(workbench_.document().changed);
}

// A folder stands where the file should go: the plaintext copy is gone all the same, and the box says why.
TEST_F(CipherHandlers, TellAFailedSave) {
  OpenSelected(u"text");
  workbench_.document().changed = true;
  std::filesystem::create_directory(folder_.path() / "letter.txt");
  workbench_.prompts().Will(folder_.path() / "letter.txt");
  dialogs_.script = {{u"1"}};
  Run("mnuSaveEncryptFile");
  EXPECT_TRUE(LastMessage().starts_with(u"文件读写失败："));
  EXPECT_TRUE(workbench_.document().changed);
  EXPECT_FALSE(std::filesystem::exists(WorkingCopyPath()));
}

TEST_F(CipherHandlers, OpenWhatWasSavedAndSaveItAgain) {
  const std::filesystem::path file = folder_.path() / "letter.txt";
  const std::u16string text = u"机密\r\n第二行，长过一个块";
  workbench_.document().texts[file] = Rijndael(text, u"42");
  workbench_.prompts().Will(file);
  dialogs_.script = {{u"42"}};
  Run("mnuOpenEncryptedFile");
  EXPECT_EQ(workbench_.document().offers, 1);
  EXPECT_EQ(workbench_.prompts().files.back().filter, u"*.txt;*.rtf");
  EXPECT_EQ(workbench_.editor().Text(), text);
  EXPECT_FALSE(workbench_.document().changed);
  ASSERT_TRUE(workbench_.document().saver);

  // What mnuSave does: only after asking.
  workbench_.document().changed = true;
  workbench_.prompts().Will(Answer::kCancel);
  EXPECT_EQ(workbench_.document().saver(workbench_), SaveOutcome::kNotSaved);
  EXPECT_TRUE(LastMessage().find(file.u16string()) != std::u16string::npos);
  EXPECT_EQ(workbench_.prompts().messages.back().buttons, Buttons::kYesNoCancel);
  workbench_.prompts().Will(Answer::kNo);
  EXPECT_EQ(workbench_.document().saver(workbench_), SaveOutcome::kSaveAsFile);
  workbench_.prompts().Will(Answer::kYes);
  dialogs_.script = {{u"", false, true}};
  EXPECT_EQ(workbench_.document().saver(workbench_), SaveOutcome::kNotSaved);
  EXPECT_TRUE(workbench_.document().changed);
  EXPECT_FALSE(std::filesystem::exists(file));
  workbench_.prompts().Will(Answer::kYes);
  dialogs_.script = {{u"77"}};
  EXPECT_EQ(workbench_.document().saver(workbench_), SaveOutcome::kSaved);
  EXPECT_FALSE(workbench_.document().changed);
  EXPECT_EQ(Decode(Encoding::kGbk, ReadWholeFile(file)), Rijndael(text, u"77"));
}

TEST_F(CipherHandlers, TellFilesThatCannotBeOpened) {
  const std::filesystem::path file = folder_.path() / "letter.txt";
  std::u16string text;
  for (char16_t c = u'一'; text.size() < 2'000; ++c) {
    text += c;
  }
  const std::u16string ciphertext = Rijndael(text, u"42");
  struct Case {
    std::optional<std::u16string> text;
    std::u16string_view message;
  };
  const Case cases[] = {
      {std::nullopt, u"Error Opening File\r\n文件读写失败：\n"},
      {u"没有密文", u"Error Opening File\r\n错误：非十六进制数据！"},
      {ciphertext.substr(0, 100), u"Error Opening File\r\n密文不完整："},
      {ciphertext, u"Incorrect Encryption Key\r\n解出来的不是当初加密的文字"},
  };
  workbench_.editor().Open(u"the document");
  for (const Case& c : cases) {
    workbench_.document().texts.clear();
    if (c.text) {
      workbench_.document().texts[file] = *c.text;
    }
    workbench_.prompts().Will(file);
    dialogs_.script = {{u"7"}};
    Run("mnuOpenEncryptedFile");
    EXPECT_TRUE(LastMessage().starts_with(c.message));
    EXPECT_EQ(workbench_.editor().Text(), u"the document");
    EXPECT_FALSE(workbench_.document().saver);
  }
}

TEST_F(CipherHandlers, OpenAnEmptyDocumentThatTheyHaveSaved) {
  const std::filesystem::path file = folder_.path() / "empty.txt";
  workbench_.editor().Open(u"");
  workbench_.prompts().Will(file);
  dialogs_.script = {{u"7"}, {u"7"}};
  Run("mnuSaveEncryptFile");
  workbench_.document().texts[file] = Decode(Encoding::kGbk, ReadWholeFile(file));
  workbench_.editor().Open(u"the document");
  workbench_.prompts().Will(file);
  Run("mnuOpenEncryptedFile");
  EXPECT_EQ(workbench_.editor().Text(), u"");
  EXPECT_TRUE(workbench_.prompts().messages.empty());
}

TEST_F(CipherHandlers, LeaveASelectionThatAnotherKeyMakesNothingOf) {
  std::u16string text;
  for (char16_t c = u'一'; text.size() < 2'000; ++c) {
    text += c;
  }
  const std::u16string longer = Rijndael(text, u"42");
  OpenSelected(longer);
  dialogs_.script = {{u"7", true}};
  Run("mnuDeEncryptSelectedText");
  EXPECT_EQ(workbench_.editor().Text(), longer);
  EXPECT_EQ(LastMessage(), u"Incorrect Encryption Key\r\n解出来的不是当初加密的文字：密钥不对，或密文被改动过。");
  const std::u16string garbled = Rijndael(u"bell \x07", u"42");
  for (const Answer answer : {Answer::kNo, Answer::kYes}) {
    OpenSelected(garbled);
    workbench_.prompts().Will(answer);
    dialogs_.script = {{u"42", true}};
    Run("mnuDeEncryptSelectedText");
    EXPECT_TRUE(LastMessage().starts_with(u"Incorrect Encryption Key\r\n"));
    EXPECT_EQ(workbench_.editor().Text(), answer == Answer::kYes ? u"bell \x07" : garbled);
  }
}

// A text too short for its end to tell: what is in it does, but the user decides.
TEST_F(CipherHandlers, AskBeforeTheyShowAGarbledText) {
  const std::filesystem::path file = folder_.path() / "letter.txt";
  workbench_.editor().Open(u"the document");
  workbench_.document().texts[file] = Rijndael(u"odd: \xDC81 and \x01, 14", u"42");
  for (const Answer answer : {Answer::kNo, Answer::kYes}) {
    workbench_.prompts().Will(file);
    workbench_.prompts().Will(answer);
    dialogs_.script = {{u"42"}};
    Run("mnuOpenEncryptedFile");
    EXPECT_TRUE(LastMessage().starts_with(u"Incorrect Encryption Key\r\n"));
    EXPECT_EQ(workbench_.prompts().messages.back().defaultAnswer, Answer::kNo);
    EXPECT_EQ(workbench_.editor().Text(), answer == Answer::kNo ? u"the document" : u"odd: \xDC81 and \x01, 14");
  }
  // Half of a pair is no such byte.
  workbench_.document().texts[file] = Rijndael(u"\U0001F4A9\f", u"42");
  workbench_.prompts().Will(file);
  dialogs_.script = {{u"42"}};
  Run("mnuOpenEncryptedFile");
  EXPECT_EQ(workbench_.editor().Text(), u"\U0001F4A9\f");
}

TEST_F(CipherHandlers, OpenNothingWhenCalledOff) {
  workbench_.editor().Open(u"the document");
  workbench_.document().offerAnswer = false;
  Run("mnuOpenEncryptedFile");
  EXPECT_TRUE(workbench_.prompts().files.empty());
  workbench_.document().offerAnswer = true;
  workbench_.prompts().Will(std::filesystem::path());
  Run("mnuOpenEncryptedFile");
  workbench_.document().texts[folder_.path() / "letter.txt"] = u"00";
  workbench_.prompts().Will(folder_.path() / "letter.txt");
  dialogs_.script = {{u"", false, true}};
  Run("mnuOpenEncryptedFile");
  EXPECT_EQ(workbench_.editor().Text(), u"the document");
  EXPECT_TRUE(workbench_.prompts().messages.empty());
}

// Rich text around the digits, so that the file is what its name says.
TEST_F(CipherHandlers, SaveRichTextUnderSuchAName) {
  OpenSelected(u"text");
  workbench_.prompts().Will(folder_.path() / "letter.RTF");
  dialogs_.script = {{u"1"}};
  Run("mnuSaveEncryptFile");
  const std::u16string bytes = Decode(Encoding::kGbk, ReadWholeFile(folder_.path() / "letter.RTF"));
  EXPECT_EQ(bytes, u"{\\rtf1\\ansi " + Rijndael(u"text", u"1") + u"}");
}

}  // namespace
}  // namespace scrivanta
