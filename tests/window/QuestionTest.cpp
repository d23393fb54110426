// While a question stands, it is the only thing that can be answered.
#include "search/FrmFindControls.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

using QuestionTest = WindowTest;

TEST_F(QuestionTest, TheMainWindowTypesNothingAndClosesNotBehindOne) {
  app.Start();
  app.Type(u"没有存过");
  app.Close();
  const Message saveQuestion{.text = u"是否存盘?", .buttons = Buttons::kYesNoCancel, .icon = Icon::kQuestion};
  MessageBoxDriver box = app.ExpectBox(saveQuestion);
  // The timer of Ctrl+; comes when it comes.
  constexpr WPARAM kTypeDate = 1;
  SendMessageW(app.MainWindow(), WM_TIMER, kTypeDate, 0);
  // A second question would keep this message from being answered.
  constexpr UINT kLongEnough = 10'000;  // milliseconds
  DWORD_PTR answer = 0;
  EXPECT_NE(SendMessageTimeoutW(app.MainWindow(), WM_CLOSE, 0, 0, SMTO_NORMAL, kLongEnough, &answer), 0);
  // Neither does the end of the session ask the same once more, nor a file that is dropped.
  EXPECT_NE(SendMessageTimeoutW(app.MainWindow(), WM_QUERYENDSESSION, 0, 0, SMTO_NORMAL, kLongEnough, &answer), 0);
  EXPECT_EQ(answer, DWORD_PTR{FALSE});
  app.StartToDrop(folder.Write(u"别的.txt", "other"));
  EXPECT_NE(SendMessageTimeoutW(app.MainWindow(), WM_NULL, 0, 0, SMTO_NORMAL, kLongEnough, &answer), 0);
  box.Answer(Answer::kCancel);
  app.Settle();
  app.ExpectText(u"没有存过");
}

TEST_F(QuestionTest, OfADialogKeepsTheMainWindowFromBeingUsed) {
  app.Start();
  app.Type(u"山水");
  app.Menu("mnuFind");
  DialogDriver dialog = app.ExpectDialog(u"查找");
  dialog.Type(Combo1, u"火").Press(CmdFindNext);
  MessageBoxDriver box = app.ExpectBox({.text = u"未找到结果", .icon = Icon::kInformation, .systemModal = true});
  EXPECT_EQ(IsWindowEnabled(app.MainWindow()), FALSE);
  box.Answer(Answer::kOk);
  EXPECT_NE(IsWindowEnabled(app.MainWindow()), FALSE);
}

}  // namespace
}  // namespace scrivanta
