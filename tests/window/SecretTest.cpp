// The key dialog and the encrypting commands as a person uses them.
#include "crypto/FrmSecretControls.h"
#include "text/Bytes.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class SecretTest : public WindowTest {
 protected:
  // Chooses a command and types the key.
  void Run(std::string_view command, std::u16string_view key, bool rijndael) {
    app.Menu(command);
    DialogDriver dialog = app.ExpectDialog(u"密钥");
    EXPECT_EQ(dialog.Text(Text1), u"") << "no key is kept";
    if (dialog.IsChecked(Check1) != rijndael) {
      dialog.Press(Check1);
    }
    dialog.Type(Text1, key);
    dialog.Press(Command1);
    dialog.WaitUntilGone();
    app.Settle();
  }
};

TEST_F(SecretTest, EncryptsTheSelectionInPlace) {
  app.Start();
  app.Editor().Insert(u"[A 中文]");
  for (const bool rijndael : {false, true}) {
    app.Editor().SelectText(u"A 中文");
    Run("mnuEncryptSelectedText", u"12", rijndael);
    const std::u16string encrypted = app.Text();
    EXPECT_NE(encrypted, u"[A 中文]");
    EXPECT_EQ(encrypted.starts_with(u"[79 46 "), !rijndael);
    app.Editor().Select({{1}, encrypted.size() - 2});
    Run("mnuDeEncryptSelectedText", u"12", rijndael);
    app.ExpectText(u"[A 中文]");
  }
}

TEST_F(SecretTest, SealsTheSelectionUnderAPassword) {
  app.Start();
  app.Editor().Insert(u"前\r\n机密 text\r\n后");
  app.Editor().SelectText(u"机密 text");
  app.Menu("mnuEncryptSelectedText");
  DialogDriver dialog = app.ExpectDialog(u"密钥");
  EXPECT_FALSE(dialog.IsEnabled(Text2));
  dialog.Press(Check2);
  EXPECT_FALSE(dialog.IsEnabled(Check1));
  dialog.Type(Text1, u"pass word 1");
  dialog.Type(Text2, u"pass word 1");
  dialog.Press(Command1);
  dialog.WaitUntilGone();
  app.Settle();
  const std::u16string sealed = app.Text();
  EXPECT_TRUE(sealed.starts_with(u"前\r\n-----BEGIN ") && sealed.ends_with(u"-----\r\n后"));

  app.Editor().Select({{3}, sealed.size() - 6});
  app.Menu("mnuDeEncryptSelectedText");
  dialog = app.ExpectDialog(u"密钥");
  EXPECT_TRUE(dialog.IsChecked(Check2)) << "it is seen what the selection is";
  EXPECT_FALSE(dialog.IsEnabled(Text2));
  dialog.Type(Text1, u"pass word 1");
  dialog.Press(Command1);
  dialog.WaitUntilGone();
  app.ExpectText(u"前\r\n机密 text\r\n后");
}

TEST_F(SecretTest, HidesTheKeyAndTakesDigitsOnly) {
  app.Start();
  app.Editor().Insert(u"text");
  app.Editor().SelectText(u"text");
  app.Menu("mnuEncryptSelectedText");
  DialogDriver dialog = app.ExpectDialog(u"密钥");
  EXPECT_NE(GetWindowLongPtrW(dialog.Control(Text1), GWL_STYLE) & ES_PASSWORD, 0);
  EXPECT_NE(GetWindowLongPtrW(dialog.window(), GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
  EXPECT_NE(dialog.ToolTip(Text1).find(u"只防别人一眼看见"), std::u16string::npos);
  dialog.Type(Text1, u"12a");
  dialog.Press(Command1);
  app.ExpectBox({.text = u"非数字！", .icon = Icon::kCritical, .systemModal = true}).Answer(Answer::kOk);
  EXPECT_TRUE(dialog.IsOpen());
  EXPECT_EQ(dialog.Focus(), Text1);
  dialog.Press(Command2);
  dialog.WaitUntilGone();
  app.ExpectText(u"text");
}

TEST_F(SecretTest, SavesAndOpensEncryptedDocuments) {
  const std::filesystem::path file = folder.path() / "letter.txt";
  app.Start();
  app.Editor().Insert(u"机密\r\n第二行");
  app.Menu("mnuSaveEncryptFile");
  app.ChooseFile(file);
  DialogDriver dialog = app.ExpectDialog(u"密钥");
  EXPECT_TRUE(dialog.IsChecked(Check1));
  EXPECT_FALSE(dialog.IsEnabled(Check1));
  dialog.Type(Text1, u"20240229");
  dialog.Press(Command1);
  dialog.WaitUntilGone();
  app.Settle();
  EXPECT_EQ(ReadWholeFile(file).size(), 32U);
  app.ExpectText(u"机密\r\n第二行");

  app.Editor().Select({{0}, 0});
  app.Menu("mnuOpenEncryptedFile");  // asks nothing: the document is unchanged
  app.ChooseFile(file);
  dialog = app.ExpectDialog(u"密钥");
  dialog.Type(Text1, u"20240229");
  dialog.Press(Command1);
  dialog.WaitUntilGone();
  app.ExpectText(u"机密\r\n第二行");
}

}  // namespace
}  // namespace scrivanta
