// A document with changes survives the program, and is offered by the next one.
#include <string>

#include "window/driver/LeftBehind.h"
#include "window/driver/ProgramProcess.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

const Message kSaveQuestion{.text = u"是否存盘?", .buttons = Buttons::kYesNoCancel, .icon = Icon::kQuestion};

class RecoveryTest : public WindowTest {
 protected:
  // A program with an untitled document, whose snapshot is up to date.
  static void WriteAndStay(const ProgramProcess& program, std::u16string_view text) {
    program.Write(text);
    program.AskForEndOfSession();
    program.ExpectBox(kSaveQuestion).Answer(Answer::kCancel);
    program.ExpectText(text);
  }
};

TEST_F(RecoveryTest, ChangesSurviveAKillWithinTenSeconds) {
  const auto document = folder.Write(u"书目.txt", Utf8(u"旧的\n"));
  Snapshot snapshot;
  {
    ProgramProcess program(document.u16string());
    program.ExpectText(u"旧的\r\n");
    program.Write(u"新的\r\n第二行\r\n");
    snapshot = WaitForSnapshot();
    program.Kill();
  }
  EXPECT_EQ(ReadBytes(document), Utf8(u"旧的\n"));

  app.Start();
  app.ExpectBox(QuestionAboutLeftBehind(snapshot)).Answer(Answer::kYes);
  app.ExpectText(u"新的\r\n第二行\r\n");
  app.ExpectCaption(u"Scrivanta " + document.u16string());
  EXPECT_EQ(app.Editor().Selection(), (TextRange{{9}, 0}));
  app.Menu("mnuSave");
  EXPECT_EQ(ReadBytes(document), Utf8(u"新的\n第二行\n"));
  app.Close();
  EXPECT_EQ(app.WaitForEnd(), 0);
  EXPECT_FALSE(NewestSnapshot());
}

TEST_F(RecoveryTest, WhatIsRefusedIsGoneAndWhatIsPutOffIsAskedAgain) {
  Snapshot snapshot;
  {
    ProgramProcess program;
    WriteAndStay(program, u"没有名字");
    snapshot = WaitForSnapshot();
    program.Kill();
  }
  for (const Answer answer : {Answer::kCancel, Answer::kNo}) {
    app.Start();
    app.ExpectBox(QuestionAboutLeftBehind(snapshot)).Answer(answer);
    app.ExpectText(u"");
    app.Close();
    EXPECT_EQ(app.WaitForEnd(), 0);
    EXPECT_EQ(NewestSnapshot().has_value(), answer == Answer::kCancel);
  }
}

TEST_F(RecoveryTest, DocumentsOfLivingProgramsAreNotOffered) {
  const ProgramProcess one;
  const ProgramProcess two;
  WriteAndStay(one, u"一");
  WriteAndStay(two, u"二");
  app.Start();
  app.ExpectCaption(u"Scrivanta.3");
  app.Type(u"三");
  app.ExpectText(u"三");
}

TEST_F(RecoveryTest, LoggingOffKeepsWhatNobodyHasAnswered) {
  Snapshot snapshot;
  {
    ProgramProcess program;
    program.Write(u"写到一半");
    program.AskForEndOfSession();
    program.ExpectBox(kSaveQuestion);
    snapshot = WaitForSnapshot();
    program.Kill();  // the system does not wait
  }
  // The window of a document that was asked for is left to it.
  const ProgramProcess next(folder.Write(u"别的.txt", Gbk(u"别的")).u16string());
  next.ExpectBox(QuestionAboutLeftBehind(snapshot)).Answer(Answer::kYes);
  ProgramProcess::StartedBy(next).ExpectText(u"写到一半");
  next.ExpectText(u"别的");
}

TEST_F(RecoveryTest, LoggingOffWithNoGivesTheChangesUp) {
  const ProgramProcess program;
  program.Write(u"不要了");
  program.AskForEndOfSession();
  program.ExpectBox(kSaveQuestion).Answer(Answer::kNo);
  SendMessageW(program.MainWindow(), WM_ENDSESSION, FALSE, 0);
  EXPECT_TRUE(NewestSnapshot()) << "the session goes on: another program has called its end off";
  PostMessageW(program.MainWindow(), WM_ENDSESSION, TRUE, 0);
  WaitUntil("the snapshot to be removed", [] { return !NewestSnapshot(); });
}

}  // namespace
}  // namespace scrivanta
