// What survives an instance that dies, and what the next one makes of it.
#include <memory>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "shell/document/DocumentRecovery.h"
#include "support/ScriptedWorkbench.h"
#include "support/StringView.h"
#include "support/TemporaryFolder.h"

namespace scrivanta {
namespace {

using namespace std::chrono_literals;
using testing::ScriptedWorkbench;
using testing::StringView;
using testing::TemporaryFolder;

// An instance of the program: it dies with the object, as by a kill, for nothing is done at its end.
class Instance {
 public:
  explicit Instance(const std::filesystem::path& recoveryFolder) {
    workbench.SetRecoveryFolder(recoveryFolder);
    view.onChanged = [this](bool isChanged) { isChanged ? recovery.NoteChange() : recovery.Forget(); };
  }

  void Edit(std::u16string_view text) {
    workbench.editor().SetText(text);
    document.NoteChange();
  }
  void Pass(std::chrono::milliseconds time) {
    for (const auto end = now + time; now < end; now += 100ms) {
      recovery.Work();
    }
  }

  DocumentRecovery::Time now;
  ScriptedWorkbench workbench;
  StringView view{workbench.editor()};
  DocumentFile document{workbench, view};
  DocumentRecovery recovery{workbench, document, [this] { return now; }};
};

class DocumentRecoveryTest : public ::testing::Test {
 protected:
  // The next start of the program, which answers the questions about what was left behind in order.
  std::unique_ptr<Instance> StartAndAnswer(std::initializer_list<Answer> answers) {
    auto instance = std::make_unique<Instance>(folder.path() / "recovery");
    for (const Answer answer : answers) {
      instance->workbench.prompts().Will(answer);
    }
    instance->recovery.OfferLeftBehind();
    EXPECT_EQ(instance->workbench.prompts().messages.size(), answers.size());
    return instance;
  }
  std::unique_ptr<Instance> Start() { return StartAndAnswer({}); }
  // Starts the program, opens a document, changes it and kills the program when a snapshot has been taken.
  void LeaveBehind(const std::filesystem::path& path, std::u16string_view text) {
    Instance instance(folder.path() / "recovery");
    if (!path.empty()) {
      instance.document.Load(path);
    }
    instance.Edit(text);
    instance.recovery.Complete();
  }

  TemporaryFolder folder;
};

TEST_F(DocumentRecoveryTest, TheDocumentComesBackAsItWasAndIsSavedWhereItBelongs) {
  const auto path = folder.Put("a.txt", "\xEF\xBB\xBF\xE6\xB1\x89\n");
  {
    const auto instance = Start();
    instance->document.Load(path);
    instance->Edit(u"汉\r\n新的一行\r\n");
    instance->workbench.editor().SetSelection({{3}, 2});
    instance->Pass(6s);
    instance->Edit(u"不到五秒以前");
    instance->Pass(1s);
  }
  const auto next = StartAndAnswer({Answer::kYes});
  EXPECT_NE(next->workbench.prompts().messages.front().text.find(path.u16string()), std::u16string::npos);
  EXPECT_EQ(next->workbench.editor().Text(), u"汉\r\n新的一行\r\n");
  EXPECT_EQ(next->workbench.editor().Selection(), (TextRange{{3}, 2}));
  EXPECT_TRUE(next->document.IsChanged());
  next->document.Save();
  EXPECT_EQ(ReadWholeFile(path), "\xEF\xBB\xBF\xE6\xB1\x89\n\xE6\x96\xB0\xE7\x9A\x84\xE4\xB8\x80\xE8\xA1\x8C\n");
  Start();  // nothing is asked
}

TEST_F(DocumentRecoveryTest, FormattingComesBack) {
  {
    const auto instance = Start();
    instance->view.isFormatted = true;
    instance->Edit(u"bold");
    instance->recovery.Complete();
  }
  const auto next = StartAndAnswer({Answer::kYes});
  EXPECT_EQ(next->workbench.editor().Text(), u"bold");
  EXPECT_TRUE(next->document.Path().empty());
}

// The text of a document whose rich text the control does not give as a whole; the file, which holds more, is not
// replaced by it unasked.
TEST_F(DocumentRecoveryTest, TheTextComesBackWhereTheFormattingCannotBeHad) {
  const auto path = folder.Put("a.rtf", "{picture}");
  {
    const auto instance = Start();
    instance->document.Load(path);
    instance->view.breaksOff = true;
    instance->Edit(u"new text");
    instance->recovery.Complete();
    EXPECT_EQ(instance->workbench.status, u"恢复用的副本里只有文字：带格式的文本没有全部取出");
  }
  const auto next = StartAndAnswer({Answer::kYes});
  EXPECT_EQ(next->workbench.editor().Text(), u"new text");
  next->workbench.prompts().Will(Answer::kNo);
  next->document.Save();
  EXPECT_EQ(ReadWholeFile(path), "{picture}");
}

TEST_F(DocumentRecoveryTest, OnlyARefusalOrASaveRemovesASnapshot) {
  LeaveBehind({}, u"没有名字");
  StartAndAnswer({Answer::kCancel});
  StartAndAnswer({Answer::kYes});  // and killed at once
  StartAndAnswer({Answer::kNo});
  Start();

  LeaveBehind({}, u"另一个");
  {
    const auto next = StartAndAnswer({Answer::kYes});
    next->document.SaveTo(folder.path() / "b.txt");
  }
  Start();
}

TEST_F(DocumentRecoveryTest, WhatHasReachedItsFileIsNotAskedAbout) {
  const auto path = folder.Put("a.txt", "old");
  LeaveBehind(path, u"new");
  folder.Put("a.txt", "new");  // killed between saving and removing the snapshot
  Start();
  folder.Put("a.txt", "old");
  Start();
}

TEST_F(DocumentRecoveryTest, LivingInstancesAreLeftAlone) {
  const auto one = Start();
  one->Edit(u"一");
  one->recovery.Complete();
  const auto two = Start();
  two->Edit(u"二");
  two->recovery.Complete();
  Start();
}

TEST_F(DocumentRecoveryTest, EachDocumentGetsAWindow) {
  LeaveBehind({}, u"第一个");
  LeaveBehind({}, u"第二个");
  LeaveBehind({}, u"第三个");
  const auto next = StartAndAnswer({Answer::kYes, Answer::kNo, Answer::kYes});
  EXPECT_EQ(next->workbench.editor().Text().substr(0, 1), u"第");
  ASSERT_EQ(next->workbench.desktop().runs.size(), 1U);

  std::u16string snapshot = next->workbench.desktop().runs.front().second;
  snapshot = snapshot.substr(1, snapshot.size() - 2);  // the quotes
  const auto other = std::make_unique<Instance>(folder.path() / "recovery");
  EXPECT_TRUE(other->recovery.Restore(snapshot));
  EXPECT_NE(other->workbench.editor().Text(), next->workbench.editor().Text());
  EXPECT_THROW(next->recovery.Restore(snapshot), std::runtime_error);
  EXPECT_FALSE(next->recovery.Restore(folder.path() / "Document.snapshot"));
  EXPECT_EQ(Start()->workbench.prompts().messages.size(), 0U);
}

TEST_F(DocumentRecoveryTest, TheOldestIsAskedAboutFirst) {
  // Folders are listed in no order: the times alone decide, here against the order in which they were made.
  const std::u16string_view texts[] = {u"文档五", u"文档四", u"文档三", u"文档二", u"文档一"};
  auto time = std::filesystem::file_time_type::clock::now();
  std::set<std::filesystem::path> known;
  for (const std::u16string_view text : texts) {
    LeaveBehind({}, text);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path())) {
      if (entry.path().filename() == "Document.snapshot" && known.insert(entry.path()).second) {
        std::filesystem::last_write_time(entry.path(), time -= 1min);
      }
    }
  }
  const auto next =
      StartAndAnswer({Answer::kCancel, Answer::kCancel, Answer::kCancel, Answer::kCancel, Answer::kCancel});
  for (std::size_t i = 0; i < std::size(texts); ++i) {
    EXPECT_NE(next->workbench.prompts().messages.at(i).text.find(texts[std::size(texts) - 1 - i]),
              std::u16string::npos);
  }
}

TEST_F(DocumentRecoveryTest, AnEncryptedDocumentIsNeverWritten) {
  const auto instance = Start();
  instance->Edit(u"秘密");
  instance->recovery.Complete();
  instance->document.SaveThrough([](Workbench&) { return SaveOutcome::kSaved; });
  instance->Edit(u"更秘密");
  instance->Pass(20s);
  instance->recovery.Complete();
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path())) {
    EXPECT_NE(entry.path().filename(), "Document.snapshot");
  }
}

TEST_F(DocumentRecoveryTest, AFailureIsShownAndTriedAgain) {
  folder.Put("recovery", "a file in the way");
  Instance instance(folder.path() / "recovery");
  instance.Edit(u"文本");
  instance.Pass(6s);
  EXPECT_TRUE(instance.workbench.status.starts_with(u"恢复用的副本没有写成："));
  EXPECT_TRUE(instance.recovery.IsPending());
  std::filesystem::remove(folder.path() / "recovery");
  instance.Pass(6s);
  EXPECT_FALSE(instance.recovery.IsPending());
  EXPECT_EQ(RecoveryPlace::TakeLeftBehind(folder.path() / "recovery").size(), 0U);
}

}  // namespace
}  // namespace scrivanta
