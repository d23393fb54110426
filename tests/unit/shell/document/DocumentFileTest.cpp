#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "shell/document/DocumentFile.h"
#include "support/ScriptedWorkbench.h"
#include "support/StringView.h"
#include "support/TemporaryFolder.h"
#include "text/ExplainedError.h"

namespace scrivanta {
namespace {

using testing::ScriptedWorkbench;
using testing::StringView;
using testing::TemporaryFolder;

constexpr char kGbkText[] = "\xBA\xBA\xD7\xD6\r\nabc";  // 汉字, abc

class DocumentFileTest : public ::testing::Test {
 protected:
  TemporaryFolder folder;
  ScriptedWorkbench workbench;
  StringView view{workbench.editor()};
  DocumentFile::Time time;
  std::chrono::milliseconds step{0};  // that the clock goes on each time it is looked at
  DocumentFile document{workbench, view, [this] { return time += step; }};

  std::filesystem::path File(const char* name) const { return folder.path() / name; }
  std::u16string Text() { return workbench.editor().Text(); }
  void Edit(std::u16string_view text) {
    workbench.editor().SetText(text);
    document.NoteChange();
  }
  void ExpectQuestions(std::size_t count) { EXPECT_EQ(workbench.prompts().messages.size(), count); }
};

TEST_F(DocumentFileTest, LoadsAndSavesTheSameBytes) {
  const auto path = folder.Put("a.txt", kGbkText);
  document.Load(path);
  EXPECT_EQ(Text(), u"汉字\r\nabc");
  EXPECT_EQ(document.Path(), path);
  EXPECT_EQ(view.shownPaths.back(), path);
  EXPECT_FALSE(document.IsChanged());

  document.NoteChange();
  document.Save();
  EXPECT_EQ(ReadWholeFile(path), kGbkText);
  EXPECT_FALSE(document.IsChanged());
  EXPECT_TRUE(view.progress.empty()) << "the bar would only flash";
  step = std::chrono::milliseconds(300);
  document.Save();
  EXPECT_EQ(view.progress, (std::vector<std::optional<int>>{100, std::nullopt}));
}

TEST_F(DocumentFileTest, SavingTidiesUpAfterASaveThatWasKilled) {
  const auto left = folder.Put("scrivanta-abcdefghijkl2345.tmp", "half");
  std::filesystem::last_write_time(left, std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
  document.Load(folder.Put("a.txt", kGbkText));
  document.Save();
  EXPECT_FALSE(std::filesystem::exists(left));
}

TEST_F(DocumentFileTest, RichTextGoesByTheName) {
  document.Load(folder.Put("a.RtF", "{rich}"));
  EXPECT_EQ(Text(), u"rich");
  document.SaveTo(File("b.rtfx"));
  EXPECT_EQ(ReadWholeFile(File("b.rtfx")), "rich");
  document.SaveTo(File("c.RTF"));
  EXPECT_EQ(ReadWholeFile(File("c.RTF")), "{rich}");
  document.Load(folder.Put("empty.rtf", ""));
  EXPECT_EQ(Text(), u"");
}

TEST_F(DocumentFileTest, ANameWithoutExtensionGetsOne) {
  Edit(u"x");
  document.SaveTo(File("notes"));
  EXPECT_EQ(ReadWholeFile(File("notes.Txt")), "x");
  EXPECT_EQ(document.Path(), File("notes.Txt"));
  EXPECT_EQ(view.shownPaths.back(), File("notes.Txt"));
}

TEST_F(DocumentFileTest, LineBreaksInAPathAreDropped) {
  const auto path = folder.Put("a.txt", "x");
  document.Load(path.string() + "\r\n");
  EXPECT_EQ(document.Path(), path);
}

TEST_F(DocumentFileTest, AFailedLoadLeavesTheDocument) {
  const auto path = folder.Put("a.txt", "old");
  document.Load(path);
  Edit(u"edited");
  EXPECT_THROW(document.Load(File("missing.txt")), FileError);
  EXPECT_THROW(document.Load(folder.path()), FileError);
  EXPECT_THROW(document.Load(folder.Put("no.rtf", "plain")), ExplainedError);
  EXPECT_EQ(Text(), u"edited");
  EXPECT_EQ(document.Path(), path);
  EXPECT_EQ(view.shownPaths.back(), path);
  EXPECT_TRUE(document.IsChanged());
}

TEST_F(DocumentFileTest, AFailedSaveLeavesTheFileAndShowsTheNewPath) {
  Edit(u"new");
  const auto target = File("folder.txt");
  std::filesystem::create_directory(target);
  EXPECT_THROW(document.SaveTo(target), FileError);
  EXPECT_TRUE(document.IsChanged());
  EXPECT_EQ(Text(), u"new");
  EXPECT_EQ(view.shownPaths.back(), target);
  ExpectQuestions(0);
}

TEST_F(DocumentFileTest, AfterAFailedSaveOnlyThePathIsAnother) {
  const auto own = folder.Put("a.txt", kGbkText);
  document.Load(own);
  Edit(u"😀");
  workbench.prompts().Will(Answer::kYes);  // as UTF-8
  EXPECT_THROW(document.SaveTo(File("no folder") / "b.txt"), FileError);
  EXPECT_EQ(document.Path(), File("no folder") / "b.txt");
  EXPECT_FALSE(document.Capture().stamp) << "it is another file's";
  folder.Put("a.txt", "theirs");
  document.LookAtFile();  // the failure is what has to be dealt with

  // The own file is still known, and its encoding still GBK.
  workbench.prompts().Will(Answer::kYes);
  workbench.prompts().Will(Answer::kCancel);
  EXPECT_FALSE(document.SaveTo(own));
  EXPECT_EQ(ReadWholeFile(own), "theirs");
  ExpectQuestions(3);
}

TEST_F(DocumentFileTest, AFileThatIsNotItsOwnIsReplacedOnlyAfterAQuestion) {
  const auto other = folder.Put("other.Txt", "other");
  Edit(u"new");
  for (const char* name : {"other", "other.Txt"}) {
    workbench.prompts().Will(File(name));
    workbench.prompts().Will(Answer::kNo);
    document.Save();
    const Message question = workbench.prompts().messages.back();
    EXPECT_EQ(question.text, u"文件已存在：\n" + other.u16string() + u"\n是否替换？");
    EXPECT_EQ(question.buttons, Buttons::kYesNo);
    EXPECT_EQ(question.defaultAnswer, Answer::kNo);
  }
  EXPECT_EQ(ReadWholeFile(other), "other");
  EXPECT_EQ(document.Path(), "");
  EXPECT_TRUE(document.IsChanged());

  workbench.prompts().Will(other);
  workbench.prompts().Will(Answer::kYes);
  document.Save();
  EXPECT_EQ(ReadWholeFile(other), "new");
  document.Save();
  document.SaveTo(folder.path() / "." / "other.Txt");
  document.SaveTo(File("other"));
  ExpectQuestions(3);
}

TEST_F(DocumentFileTest, AFileWithoutExtensionKeepsItsName) {
  const auto path = folder.Put("notes", "x");
  document.Load(path);
  Edit(u"y");
  document.Save();
  EXPECT_EQ(ReadWholeFile(path), "y");
  EXPECT_EQ(document.Path(), path);
  EXPECT_FALSE(std::filesystem::exists(File("notes.Txt")));
}

TEST_F(DocumentFileTest, IsAbsoluteInsideAndShownAsGiven) {
  const auto path = folder.Put("a.txt", "x");
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.path());
  document.Load("a.txt");
  std::filesystem::current_path(before);
  EXPECT_EQ(document.Path(), path);
  EXPECT_EQ(document.Capture().path, path);
  EXPECT_EQ(view.shownPaths.back(), "a.txt");
  Edit(u"y");
  document.Save();
  EXPECT_EQ(ReadWholeFile(path), "y");
  EXPECT_EQ(view.shownPaths.back(), "a.txt");
}

TEST_F(DocumentFileTest, AnInterruptedSaveLeavesTheFile) {
  const auto path = folder.Put("a.txt", "old");
  document.Load(path);
  Edit(u"new");
  workbench.interruptAfter = workbench.reports + 1;
  EXPECT_THROW(document.Save(), Interrupted);
  EXPECT_EQ(ReadWholeFile(path), "old");
  EXPECT_TRUE(document.IsChanged());
  EXPECT_EQ(workbench.worksAlive, 0);
}

TEST_F(DocumentFileTest, OpeningAnUnchangedDocumentAsksForTheFileOnly) {
  workbench.prompts().Will(folder.Put("a.txt", "x"));
  document.OpenAsked();
  EXPECT_EQ(Text(), u"x");
  EXPECT_EQ(workbench.prompts().files.back().filter, u"*.txt");
  workbench.prompts().Will(std::filesystem::path());
  document.OpenAsked();
  EXPECT_EQ(Text(), u"x");
  ExpectQuestions(0);
}

TEST_F(DocumentFileTest, OpeningOverAChangedDocument) {
  const auto old = folder.Put("old.txt", "old");
  const auto other = folder.Put("other.txt", "other");
  document.Load(old);

  Edit(u"1");
  workbench.prompts().Will(Answer::kCancel);
  document.OpenAsked();
  EXPECT_EQ(Text(), u"1");

  workbench.prompts().Will(Answer::kNo);
  workbench.prompts().Will(other);
  document.OpenAsked();
  EXPECT_EQ(Text(), u"other");
  EXPECT_EQ(ReadWholeFile(old), "old");

  Edit(u"2");
  workbench.prompts().Will(Answer::kYes);
  workbench.prompts().Will(old);
  document.OpenAsked();
  EXPECT_EQ(Text(), u"old");
  EXPECT_EQ(ReadWholeFile(other), "2");

  const Message question = workbench.prompts().messages.back();
  EXPECT_EQ(question.text, u"是否存盘?");
  EXPECT_EQ(question.buttons, Buttons::kYesNoCancel);
}

TEST_F(DocumentFileTest, WithoutANameOpeningGoesOnButClosingDoesNot) {
  const auto other = folder.Put("other.txt", "other");
  Edit(u"untitled");
  workbench.prompts().Will(Answer::kYes);
  workbench.prompts().Will(std::filesystem::path());
  EXPECT_FALSE(document.MayClose());
  EXPECT_EQ(workbench.prompts().files.back().filter, u"*.txt;*.rtf");
  EXPECT_EQ(Text(), u"untitled");
  EXPECT_TRUE(document.IsChanged());

  workbench.prompts().Will(Answer::kYes);
  workbench.prompts().Will(std::filesystem::path());
  workbench.prompts().Will(other);
  workbench.prompts().Will(Answer::kCancel);
  document.OpenAsked();
  EXPECT_EQ(Text(), u"untitled") << "nothing unsaved goes without a question";
  EXPECT_TRUE(document.IsChanged());

  workbench.prompts().Will(Answer::kYes);
  workbench.prompts().Will(std::filesystem::path());
  workbench.prompts().Will(other);
  workbench.prompts().Will(Answer::kNo);
  document.OpenAsked();
  EXPECT_EQ(Text(), u"other");
}

TEST_F(DocumentFileTest, Closing) {
  EXPECT_TRUE(document.MayClose());
  Edit(u"x");
  workbench.prompts().Will(Answer::kNo);
  EXPECT_TRUE(document.MayClose());
  workbench.prompts().Will(Answer::kCancel);
  EXPECT_FALSE(document.MayClose());
  workbench.prompts().Will(Answer::kYes);
  workbench.prompts().Will(File("new"));
  EXPECT_TRUE(document.MayClose());
  EXPECT_EQ(ReadWholeFile(File("new.Txt")), "x");
  EXPECT_TRUE(document.MayClose());
  ExpectQuestions(3);
}

TEST_F(DocumentFileTest, Dropping) {
  const std::vector<std::filesystem::path> two = {folder.Put("a.txt", "a"), folder.Put("b.txt", "b")};
  document.OpenDropped(two);
  EXPECT_EQ(workbench.prompts().messages.back().text, u"每次只能打开一个文件！");
  EXPECT_EQ(Text(), u"");

  document.OpenDropped(std::span(two).first(1));
  EXPECT_EQ(Text(), u"a");

  Edit(u"changed");
  document.ShowNew(u"untitled", nullptr);
  document.NoteChange();
  workbench.prompts().Will(Answer::kYes);
  workbench.prompts().Will(std::filesystem::path());
  document.OpenDropped(std::span(two).last(1));
  EXPECT_EQ(Text(), u"untitled");
  EXPECT_EQ(workbench.prompts().files.back().filter, u"*.txt");
}

TEST_F(DocumentFileTest, SavingAnUntitledDocumentAsksForAName) {
  Edit(u"x");
  workbench.prompts().Will(std::filesystem::path());
  document.Save();
  EXPECT_TRUE(document.IsChanged());
  workbench.prompts().Will(File("a.txt"));
  document.Save();
  EXPECT_EQ(ReadWholeFile(File("a.txt")), "x");
  document.Save();
  workbench.prompts().Will(File("b.txt"));
  document.SaveAs();
  EXPECT_EQ(document.Path(), File("b.txt"));
  EXPECT_EQ(workbench.prompts().files.size(), 3U);
}

TEST_F(DocumentFileTest, EncodingAndLineEndsComeBack) {
  const std::vector<std::string> files = {
      "\xE6\xB1\x89\xE5\xAD\x97\n",
      "\xEF\xBB\xBF"
      "a\r\n",
      std::string("\xFF\xFE"
                  "a\0\r\0",
                  6),
      kGbkText,
      "a\rb\r",
  };
  for (const std::string& bytes : files) {
    const auto path = folder.Put("a.txt", bytes);
    document.Load(path);
    document.Save();
    EXPECT_EQ(ReadWholeFile(path), bytes);
  }
  ExpectQuestions(0);
}

TEST_F(DocumentFileTest, MixedLineEndsAreTold) {
  document.Load(folder.Put("a.txt", "a\nb\r\n"));
  EXPECT_EQ(view.notices.back(), u"行尾不一致，存盘时将统一为 CR LF");
  EXPECT_EQ(Text(), u"a\r\nb\r\n");
  workbench.status.clear();
  document.Save();
  EXPECT_EQ(ReadWholeFile(File("a.txt")), "a\r\nb\r\n");
  EXPECT_EQ(workbench.status, u"行尾不一致，存盘时已统一为 CR LF");
  workbench.status.clear();
  document.Save();
  EXPECT_EQ(workbench.status, u"");
}

TEST_F(DocumentFileTest, FormatsGoOnlyAfterAQuestion) {
  document.Load(folder.Put("a.rtf", "{rich}"));
  view.isFormatted = true;
  workbench.prompts().Will(File("a.txt"));
  workbench.prompts().Will(Answer::kNo);
  EXPECT_FALSE(document.SaveAs());
  EXPECT_FALSE(std::filesystem::exists(File("a.txt")));
  EXPECT_EQ(document.Path(), File("a.rtf"));
  EXPECT_EQ(workbench.prompts().messages.back().defaultAnswer, Answer::kNo);

  workbench.prompts().Will(File("b.rtf"));
  workbench.prompts().Will(File("a.txt"));
  workbench.prompts().Will(Answer::kYes);
  EXPECT_TRUE(document.SaveAs());
  EXPECT_TRUE(document.SaveAs());
  EXPECT_EQ(ReadWholeFile(File("a.txt")), "rich");
  document.Save();
  ExpectQuestions(2);

  document.Load(File("a.txt"));
  workbench.prompts().Will(Answer::kNo);
  document.Save();
  ExpectQuestions(3);
}

TEST_F(DocumentFileTest, WhatIsNoTextOpensReadOnlyAfterAQuestion) {
  const std::string bytes("\0\1\2\0\3\xFF\xFE\0", 8);
  const auto path = folder.Put("a.bin", bytes);
  Edit(u"old");
  workbench.prompts().Will(Answer::kNo);
  document.Load(path);
  EXPECT_EQ(Text(), u"old");
  EXPECT_FALSE(view.isReadOnly);
  EXPECT_EQ(workbench.prompts().messages.back().defaultAnswer, Answer::kNo);

  workbench.prompts().Will(Answer::kYes);
  document.Load(path);
  EXPECT_TRUE(view.isReadOnly);
  workbench.editor().Open(u"what a control makes of it");
  std::filesystem::create_symlink("a.bin", File("link"));
  for (const auto& spelling : {path, folder.path() / "." / "a.bin", File("link")}) {
    EXPECT_THROW(document.SaveTo(spelling), ExplainedError);
    EXPECT_THROW(document.ConfirmTarget(spelling), ExplainedError);
  }
  EXPECT_EQ(ReadWholeFile(path), bytes);
  workbench.prompts().Will(File("copy.bin"));
  document.SaveAs();
  EXPECT_EQ(ReadWholeFile(File("copy.bin")), bytes);
  EXPECT_FALSE(view.isReadOnly);
  document.Save();
}

TEST_F(DocumentFileTest, CharactersThatGbkLacksAreAskedAboutOnce) {
  const auto path = folder.Put("a.txt", kGbkText);
  document.Load(path);
  Edit(u"😀");
  workbench.prompts().Will(Answer::kCancel);
  document.Save();
  EXPECT_EQ(ReadWholeFile(path), kGbkText);
  EXPECT_TRUE(document.IsChanged());

  workbench.prompts().Will(Answer::kNo);
  document.Save();
  EXPECT_EQ(ReadWholeFile(path), "\x94\x39\xFC\x36");
  document.Save();

  document.Load(folder.Put("b.txt", kGbkText));
  Edit(u"😀");
  workbench.prompts().Will(Answer::kYes);
  document.Save();
  document.Load(File("b.txt"));
  EXPECT_EQ(Text(), u"😀");
  ExpectQuestions(3);
}

// A document that is no plain file is saved by the one who has shown it.
TEST_F(DocumentFileTest, ASaverTakesThePlaceOfSaving) {
  document.Load(folder.Put("a.txt", "a"));
  int saves = 0;
  SaveOutcome outcome = SaveOutcome::kSaved;
  document.ShowNew(u"secret", [&](Workbench&) {
    ++saves;
    if (outcome == SaveOutcome::kSaved) {
      document.MarkUnchanged();
    }
    return outcome;
  });
  EXPECT_EQ(document.Path(), std::filesystem::path());
  EXPECT_EQ(view.shownPaths.back(), std::filesystem::path());

  document.NoteChange();
  document.Save();
  EXPECT_EQ(saves, 1);

  document.NoteChange();
  outcome = SaveOutcome::kNotSaved;
  workbench.prompts().Will(Answer::kYes);
  EXPECT_FALSE(document.MayClose());

  outcome = SaveOutcome::kSaveAsFile;
  workbench.prompts().Will(File("plain.txt"));
  document.Save();
  EXPECT_EQ(ReadWholeFile(File("plain.txt")), "secret");
  EXPECT_EQ(saves, 3);
  document.Save();
  EXPECT_EQ(saves, 3);
}

TEST_F(DocumentFileTest, FilesThatWereOpenedAndSavedAreRemembered) {
  const auto path = folder.Put("a.txt", kGbkText);
  document.Load(path);
  EXPECT_ANY_THROW(document.Load(File("missing.txt")));
  document.SaveTo(File("b.txt"));
  EXPECT_ANY_THROW(document.SaveTo(File("no folder") / "c.txt"));
  document.TextOfFile(path);
  document.ShowNew(u"secret", [](Workbench&) { return SaveOutcome::kSaved; });
  document.Save();
  EXPECT_EQ(view.used, (std::vector<std::filesystem::path>{path, File("b.txt")}));
}

TEST_F(DocumentFileTest, TheTextOfAFileIsReadWithoutShowingIt) {
  Edit(u"shown");
  EXPECT_EQ(document.TextOfFile(folder.Put("a.txt", kGbkText)), u"汉字\r\nabc");
  EXPECT_EQ(document.TextOfFile(folder.Put("a.rtf", "{rich}")), u"rich");
  EXPECT_THROW(document.TextOfFile(folder.Put("b.rtf", "plain")), ExplainedError);
  EXPECT_THROW(document.TextOfFile(File("missing.txt")), FileError);
  EXPECT_EQ(Text(), u"shown");
  EXPECT_TRUE(document.IsChanged());
}

TEST_F(DocumentFileTest, WhatTheEditBoxDoesNotKeepIsAskedAboutBeforeTheFirstOverwriting) {
  const std::string bytes = "{\\rtf1{\\*\\bkmkstart a}x\\s3\\ls2 y\\caps0{\\pict 0}}";
  const auto path = folder.Put("a.rtf", bytes);
  const auto copy = folder.path() / u"a-原文件.rtf";
  document.Load(path);
  Edit(u"new");
  workbench.prompts().Will(Answer::kCancel);
  document.Save();
  EXPECT_EQ(workbench.prompts().messages.back().text,
            u"文件里有编辑框不能保留的内容，存盘以后就没有了：\n样式的名字、自动编号、书签\n\n"
            u"“是”：原来的文件先留一份，再存盘：\n" +
                TextOfPath(copy) + u"\n“否”：直接存盘\n“取消”：不存盘");
  EXPECT_TRUE(document.IsChanged());
  EXPECT_EQ(ReadWholeFile(path), bytes);

  workbench.prompts().Will(Answer::kYes);
  document.Save();
  EXPECT_EQ(ReadWholeFile(copy), bytes);
  EXPECT_EQ(ReadWholeFile(path), "{new}");
  document.Save();
  ExpectQuestions(2);

  // The next copy has a name of its own; another file of the document's takes nothing away from this one.
  folder.Put("a.rtf", bytes);
  document.Load(path);
  workbench.prompts().Will(Answer::kYes);
  document.Save();
  EXPECT_EQ(ReadWholeFile(folder.path() / u"a-原文件2.rtf"), bytes);
  folder.Put("b.rtf", bytes);
  document.Load(File("b.rtf"));
  document.SaveTo(File("c.rtf"));
  ExpectQuestions(3);
}

class ExternalChangeTest : public DocumentFileTest {
 protected:
  ExternalChangeTest() { document.Load(path); }

  // As another program does, which takes a while.
  void ChangeFile(std::string_view bytes) {
    folder.Put("a.txt", bytes);
    std::filesystem::last_write_time(path, std::filesystem::last_write_time(path) + std::chrono::seconds(++changes_));
  }
  void LookAndAnswer(Answer answer) {
    workbench.prompts().Will(answer);
    document.LookAtFile();
  }

  const std::filesystem::path path = folder.Put("a.txt", "old");

 private:
  int changes_ = 0;
};

TEST_F(ExternalChangeTest, IsLoadedAsAChangeThatCanBeUndone) {
  document.LookAtFile();
  Edit(u"mine");
  ChangeFile("\xEF\xBB\xBFtheirs\n");
  const int changes = workbench.editor().changes;
  workbench.editor().scroll = {0, 42};
  LookAndAnswer(Answer::kYes);
  EXPECT_EQ(Text(), u"theirs\r\n");
  EXPECT_EQ(workbench.editor().scroll.y, 42);
  EXPECT_EQ(workbench.editor().changes, changes + 1);
  EXPECT_FALSE(document.IsChanged());
  document.LookAtFile();

  view.undoOfReplacing(true);
  Edit(u"theirs and mine\r\n");
  document.Save();
  EXPECT_EQ(ReadWholeFile(path), "theirs and mine\r\n") << "the format goes back and forth with the text";
  view.undoOfReplacing(false);
  document.Save();
  EXPECT_EQ(ReadWholeFile(path), "\xEF\xBB\xBFtheirs and mine\n");
  document.LookAtFile();
  ExpectQuestions(1);
}

TEST_F(ExternalChangeTest, IsNotReplacedWithoutAnotherQuestion) {
  ChangeFile("theirs");
  LookAndAnswer(Answer::kNo);
  EXPECT_EQ(Text(), u"old");
  EXPECT_TRUE(document.IsChanged()) << "closing the window has to ask";
  document.LookAtFile();
  ExpectQuestions(1);

  workbench.prompts().Will(Answer::kCancel);
  document.Save();
  EXPECT_EQ(ReadWholeFile(path), "theirs");
  workbench.prompts().Will(Answer::kNo);
  workbench.prompts().Will(File("b.txt"));
  document.Save();
  EXPECT_EQ(ReadWholeFile(path), "theirs");
  EXPECT_EQ(ReadWholeFile(File("b.txt")), "old");
  EXPECT_FALSE(document.IsChanged());
  document.Save();  // which is another file, that nobody has changed
  ExpectQuestions(3);
}

TEST_F(ExternalChangeTest, IsAskedAboutOnSavingEvenIfTheWindowWasNeverLeft) {
  Edit(u"mine");
  ChangeFile("theirs");
  workbench.prompts().Will(Answer::kYes);
  document.Save();
  EXPECT_EQ(ReadWholeFile(path), "mine");
  document.Save();
  ExpectQuestions(1);
}

TEST_F(ExternalChangeTest, ThatChangesNothingIsNoNews) {
  Edit(u"new");
  ChangeFile("new");
  document.LookAtFile();
  EXPECT_FALSE(document.IsChanged());
  ExpectQuestions(0);
}

TEST_F(ExternalChangeTest, OfTheTimeAloneIsNoNews) {
  const auto mixed = folder.Put("a.txt", "a\nb\r\n");
  document.Load(mixed);
  ChangeFile("a\nb\r\n");
  document.LookAtFile();
  EXPECT_FALSE(document.IsChanged());
  Edit(u"c");
  ChangeFile("a\nb\r\n");
  document.Save();
  EXPECT_EQ(ReadWholeFile(path), "c");
  ExpectQuestions(0);
}

TEST_F(ExternalChangeTest, IsAskedAboutUnderAnySpelling) {
  Edit(u"mine");
  ChangeFile("theirs");
  workbench.prompts().Will(Answer::kCancel);
  EXPECT_FALSE(document.SaveTo(folder.path() / "." / "a.txt"));
  workbench.prompts().Will(Answer::kNo);
  workbench.prompts().Will(std::filesystem::path());
  EXPECT_FALSE(document.ConfirmTarget(std::filesystem::relative(path)));
  EXPECT_EQ(ReadWholeFile(path), "theirs");
}

TEST_F(ExternalChangeTest, ToWhatIsNoTextIsNotLoaded) {
  ChangeFile(std::string("a\0b\0", 4));
  EXPECT_THROW(LookAndAnswer(Answer::kYes), ExplainedError);
  EXPECT_EQ(Text(), u"old");
}

TEST_F(ExternalChangeTest, ADeletedFileIsToldOnceAndWrittenAgain) {
  std::filesystem::remove(path);
  document.LookAtFile();
  EXPECT_TRUE(document.IsChanged());
  document.LookAtFile();
  ExpectQuestions(1);
  document.Save();
  EXPECT_EQ(ReadWholeFile(path), "old");
  document.LookAtFile();
  ExpectQuestions(1);
}

}  // namespace
}  // namespace scrivanta
