// The program is killed at every moment of writing a snapshot, of saving, and of keeping a note: nothing is lost,
// whenever it was.
#include <windows.h>

#include <richedit.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "note/FrmNoteControls.h"
#include "shell/document/RecoveryPlace.h"
#include "text/win/WideText.h"
#include "window/driver/LeftBehind.h"
#include "window/driver/ProgramProcess.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class CrashTest : public WindowTest {
 protected:
  ~CrashTest() override { Arm(0); }

  // The program writes a snapshot of a changed document, saves it and removes the snapshot; it does not survive the
  // moment of that number. The names of the moments that it has passed.
  std::vector<std::string> WriteAndSave(int fatalMoment) {
    WriteBytes(document, Gbk(kOld));
    WriteBytes(log, "");
    ForgetSnapshots();
    Arm(fatalMoment);
    const ProgramProcess program(document.u16string(), TestProgramFolder() / L"scrivanta_crashing.exe");
    program.ExpectText(kOld);
    program.Write(kNew);
    program.AskForEndOfSession();
    if (fatalMoment == 0 || fatalMoment > static_cast<int>(kOfSnapshot)) {
      program.ExpectBox({.text = u"是否存盘?", .buttons = Buttons::kYesNoCancel, .icon = Icon::kQuestion})
          .Answer(Answer::kYes);
    }
    if (fatalMoment > 0) {
      program.WaitForEnd();
    } else {
      WaitUntil("the document to be saved", [&] { return Passed().size() == kOfSnapshot + kOfSaving; });
    }
    return Passed();
  }

  // Two texts are written into a new note, the second when the first is kept.
  std::vector<std::string> WriteIntoNote(int fatalMoment) {
    WriteBytes(log, "");
    ForgetNotes();
    Arm(fatalMoment);
    const ProgramProcess program({}, TestProgramFolder() / L"scrivanta_crashing.exe");
    program.Menu("mnuNote");
    const HWND note = WaitFor("the note", [&] { return FindTopWindow(program.processId(), kDialogClass, u"便笺"); });
    const auto write = [&](std::u16string_view text, std::size_t moments) {
      Send(GetDlgItem(note, RichNote), EM_SETSEL, 0, -1);
      Send(GetDlgItem(note, RichNote), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(ToWide(text).c_str()));
      WaitUntil("the note to be kept, or its program to end",
                [&] { return Passed().size() == moments || program.HasEnded(); });
    };
    write(kOld, kOfKeeping);
    if (!program.HasEnded()) {
      write(kNew, 2 * kOfKeeping);
    }
    if (fatalMoment > 0) {
      program.WaitForEnd();
    }
    return Passed();
  }

  static constexpr std::size_t kOfKeeping = 4;   // made, written, flushed, in place
  static constexpr std::size_t kOfSnapshot = 5;  // made, header and body written, flushed, in place
  static constexpr std::size_t kOfSaving = 5;    // made, written, flushed, in place, the snapshot is removed
  static constexpr char16_t kOld[] = u"旧的\r\n";
  static constexpr char16_t kNew[] = u"新的，还没有存盘\r\n";

  const std::filesystem::path document = folder / u"原稿.txt";
  const std::filesystem::path log = folder / u"crash.log";

 private:
  std::vector<std::string> Passed() const {
    std::vector<std::string> names;
    std::string bytes = ReadBytes(log);
    for (std::size_t end = bytes.find('\n'); end != std::string::npos; end = bytes.find('\n')) {
      names.push_back(bytes.substr(0, end));
      bytes.erase(0, end + 1);
    }
    return names;
  }

  void Arm(int fatalMoment) const {
    SetEnvironmentVariableW(L"SCRIVANTA_CRASH_LOG", log.c_str());
    SetEnvironmentVariableW(L"SCRIVANTA_CRASH_AT", std::to_wstring(fatalMoment).c_str());
  }
};

TEST_F(CrashTest, NothingIsLostAtAnyMomentOfWritingAndSaving) {
  const std::vector<std::string> moments = WriteAndSave(0);
  ASSERT_EQ(moments.size(), kOfSnapshot + kOfSaving);
  ASSERT_EQ(moments[kOfSnapshot - 1], "the file is in place");
  ASSERT_EQ(moments.back(), "the snapshot is removed");
  constexpr std::size_t kSaved = kOfSnapshot + kOfSaving - 1;  // the new document is in place
  for (std::size_t moment = 1; moment <= moments.size(); ++moment) {
    SCOPED_TRACE("killed after: " + moments[moment - 1] + " (" + std::to_string(moment) + ")");
    EXPECT_EQ(WriteAndSave(static_cast<int>(moment)).size(), moment);
    EXPECT_EQ(ReadBytes(document), Gbk(moment < kSaved ? kOld : kNew));
    const std::optional<Snapshot> snapshot = NewestSnapshot();
    ASSERT_EQ(snapshot.has_value(), moment >= kOfSnapshot && moment <= kSaved);
    EXPECT_TRUE(!snapshot || (snapshot->text == kNew && snapshot->path == document));

    // The next start asks about what is nowhere else, and about nothing else.
    App next;
    next.Start();
    if (moment >= kOfSnapshot && moment < kSaved) {
      next.ExpectBox(QuestionAboutLeftBehind(*snapshot)).Answer(Answer::kYes);
      next.ExpectText(kNew);
    }
    next.Close();
    if (moment >= kOfSnapshot && moment < kSaved) {
      next.ExpectBox({.text = u"是否存盘?", .buttons = Buttons::kYesNoCancel, .icon = Icon::kQuestion})
          .Answer(Answer::kYes);
      EXPECT_EQ(ReadBytes(document), Gbk(kNew));
    }
    EXPECT_EQ(next.WaitForEnd(), 0);
    EXPECT_FALSE(NewestSnapshot());
  }
}

TEST_F(CrashTest, ANoteIsWholeAtAnyMomentOfKeepingIt) {
  const std::vector<std::string> moments = WriteIntoNote(0);
  ASSERT_EQ(moments.size(), 2 * kOfKeeping);
  ASSERT_EQ(moments.back(), "the file is in place");
  for (std::size_t moment = 1; moment <= moments.size(); ++moment) {
    SCOPED_TRACE("killed after: " + moments[moment - 1] + " (" + std::to_string(moment) + ")");
    EXPECT_EQ(WriteIntoNote(static_cast<int>(moment)).size(), moment);

    App next;
    next.Start();
    next.Menu("mnuNote");
    const EditBoxDriver note(next.ExpectDialog(u"便笺").Control(RichNote));
    EXPECT_EQ(note.Text(), moment < kOfKeeping ? u"" : moment < 2 * kOfKeeping ? kOld : kNew);
    next.Close();
    EXPECT_EQ(next.WaitForEnd(), 0);
  }
}

}  // namespace
}  // namespace scrivanta
