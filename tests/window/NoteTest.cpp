// The floating notes: two beside each other, found again, searched, and their ways to the document.
#include <windows.h>

#include <richedit.h>

#include <vector>

#include "note/FrmNoteControls.h"
#include "note/NoteStore.h"
#include "window/driver/Keyboard.h"
#include "window/driver/LeftBehind.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class NoteTest : public WindowTest {
 protected:
  static std::vector<HWND> Notes() {
    std::vector<HWND> notes = TopWindows(GetCurrentProcessId(), kDialogClass);
    std::erase_if(notes, [](HWND window) { return TextOf(window) != u"便笺"; });
    return notes;
  }
  // The one on top of the others.
  DialogDriver Note() {
    return {WaitFor("a note", [] { return Notes().empty() ? nullptr : Notes().front(); }), [this] { app.Settle(); }};
  }
  static std::u16string TextOfNote(const DialogDriver& note) { return EditBoxDriver(note.Control(RichNote)).Text(); }
  void Command(const DialogDriver& note, int command) {
    PostMessageW(note.window(), WM_COMMAND, static_cast<WPARAM>(command), 0);
    app.Settle();
  }
  static void ExpectKept(std::size_t index, std::u16string_view text) {
    ExpectShown("the note as it is kept", text, [index]() -> std::u16string {
      const NoteStore store(NotesFolder());
      const std::vector<NoteEntry> entries = store.List();
      return index < entries.size() ? store.Read(entries[index].name).text : u"（没有）";
    });
  }
  static RECT BoundsOf(HWND window) {
    RECT bounds{};
    GetWindowRect(window, &bounds);
    return bounds;
  }
  static bool IsMarked(const DialogDriver& note, LONG start) {
    const EditBoxDriver box(note.Control(RichNote));
    const TextRange before = box.Selection();
    box.Select({{static_cast<std::size_t>(start)}, 1});
    const bool isMarked = (box.SelectionFormat().dwEffects & CFE_AUTOBACKCOLOR) == 0;
    box.Select(before);
    return isMarked;
  }
};

TEST_F(NoteTest, TwoAreKeptAndFoundAgain) {
  app.Start();
  app.Menu("mnuNote");
  DialogDriver first = Note();
  app.Type(u"买牛奶");
  ExpectKept(0, u"买牛奶");
  app.Press("Ctrl+N");
  DialogDriver second = Note();
  ASSERT_NE(second.window(), first.window());
  RECT firstBounds = BoundsOf(first.window());
  const RECT secondBounds = BoundsOf(second.window());
  EXPECT_TRUE(secondBounds.left > firstBounds.left && secondBounds.top > firstBounds.top);
  EXPECT_NE(GetWindowLongPtrW(second.window(), GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
  app.Type(u"打电话");
  ExpectKept(1, u"打电话");
  ExpectShown("the title in the list", u"打电话", [&] { return second.Text(CmbNotes); });

  // One is closed, the other stays open and is moved; the next run finds both.
  app.Press("Esc");
  second.WaitUntilGone();
  SetWindowPos(first.window(), nullptr, 100, 80, 400, 300, SWP_NOZORDER);
  app.Close();
  EXPECT_EQ(app.WaitForEnd(), 0);
  app.Start();
  app.Menu("mnuNote");
  first = Note();
  EXPECT_EQ(Notes().size(), 1U);
  EXPECT_EQ(TextOfNote(first), u"买牛奶");
  firstBounds = BoundsOf(first.window());
  EXPECT_EQ(firstBounds.left, 100);
  EXPECT_EQ(firstBounds.bottom, 380);
  PostMessageW(first.window(), WM_COMMAND, MAKEWPARAM(CmbNotes, CBN_DROPDOWN), 0);
  app.Settle();
  EXPECT_EQ(first.Items(CmbNotes), (std::vector<std::u16string>{u"买牛奶", u"打电话"}));
  Send(first.Control(CmbNotes), CB_SETCURSEL, 1);
  PostMessageW(first.window(), WM_COMMAND, MAKEWPARAM(CmbNotes, CBN_SELENDOK), 0);
  app.Settle();
  ASSERT_EQ(Notes().size(), 2U);
  second = Note();
  EXPECT_EQ(TextOfNote(second), u"打电话");

  // What another instance has open it keeps to itself.
  const std::unique_ptr<FileClaim> elsewhere = NoteStore(NotesFolder()).Claim("000002");
  EXPECT_FALSE(elsewhere);

  Command(second, mnuNoteDelete);
  const Message question{.text = u"删除这张便笺？删除后不能恢复。",
                         .buttons = Buttons::kYesNo,
                         .icon = Icon::kQuestion,
                         .defaultAnswer = Answer::kNo,
                         .systemModal = true};  // it stands above the note, which stands above all others
  app.ExpectBox(question).Answer(Answer::kNo);
  EXPECT_TRUE(second.IsOpen());
  Command(second, mnuNoteDelete);
  app.ExpectBox(question).Answer(Answer::kYes);
  second.WaitUntilGone();
  EXPECT_EQ(NoteStore(NotesFolder()).List().size(), 1U);
}

TEST_F(NoteTest, SearchMarksAllPlacesAndGoesThroughThem) {
  app.Start();
  app.Menu("mnuNote");
  const DialogDriver note = Note();
  const EditBoxDriver box(note.Control(RichNote));
  box.Insert(u"abc 甲\r\nxABx 乙\r\nab");
  app.Type(u"丙");
  box.Select({{0}, 0});
  app.Press("Ctrl+F");
  EXPECT_EQ(note.Focus(), TxtNoteFind);
  app.Type(u"ab");
  EXPECT_EQ(note.Text(LabNoteFound), u"0/3");
  // However small the note is made, there is room for its search and its text.
  SetWindowPos(note.window(), nullptr, 0, 0, 1, 1, SWP_NOMOVE | SWP_NOZORDER);
  const RECT find = BoundsOf(note.Control(TxtNoteFind));
  const RECT shownText = BoundsOf(box.window());
  EXPECT_TRUE(find.right - find.left > find.bottom - find.top &&
              find.right < BoundsOf(note.Control(ChkNotePattern)).left);
  EXPECT_TRUE(shownText.bottom - shownText.top > find.bottom - find.top && shownText.bottom <= find.top);
  EXPECT_TRUE(IsMarked(note, 0) && IsMarked(note, 8) && IsMarked(note, 15) && !IsMarked(note, 2));
  app.Press("Enter");
  EXPECT_EQ(note.Text(LabNoteFound), u"1/3");
  app.Press("F3");
  app.Press("F3");
  EXPECT_EQ(note.Text(LabNoteFound), u"3/3");
  EXPECT_EQ(box.Selection(), (TextRange{{15}, 2}));
  app.Press("F3");
  EXPECT_EQ(note.Text(LabNoteFound), u"1/3");
  app.Press("Shift+F3");
  EXPECT_EQ(note.Text(LabNoteFound), u"3/3");

  DialogDriver(note).Type(TxtNoteFind, u"[甲乙").Press(ChkNotePattern);
  EXPECT_EQ(note.Text(LabNoteFound), u"式有误");
  DialogDriver(note).Type(TxtNoteFind, u"[甲乙]$");
  EXPECT_EQ(note.Text(LabNoteFound), u"0/2");
  EXPECT_TRUE(IsMarked(note, 4) && IsMarked(note, 12) && !IsMarked(note, 0));
  // Found in what is being typed, too.
  SendMessageW(note.window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(note.Control(RichNote)), TRUE);
  box.Select({{18}, 0});
  app.Type(u"甲");
  EXPECT_EQ(note.Text(LabNoteFound), u"0/3");

  app.Press("Esc");
  EXPECT_EQ(note.Focus(), RichNote);
  EXPECT_FALSE(IsMarked(note, 4));
  EXPECT_TRUE(note.IsOpen());
  // The marks are no steps of undo.
  app.Press("Ctrl+Z");
  EXPECT_EQ(TextOfNote(note), u"abc 甲\r\nxABx 乙\r\nab丙");
}

TEST_F(NoteTest, TextGoesToTheDocumentAndBack) {
  const std::filesystem::path document = folder.Write(u"diary.txt", Gbk(u"前后"));
  app.Start(document.u16string());
  app.Menu("mnuNote");
  const DialogDriver note = Note();
  const EditBoxDriver box(note.Control(RichNote));
  box.Insert(u"一\r\n二");
  PostMessageW(box.window(), WM_CONTEXTMENU, 0, -1);
  app.WaitForPopup();
  app.ChooseInPopup(u'A');
  EXPECT_EQ(Shown(box.SelectedText()), Shown(u"一\r\n二"));
  box.Select({{4}, 0});
  app.Editor().Select({{1}, 0});
  app.Press("Ctrl+Enter");
  app.ExpectText(u"前一\r\n二后");
  app.ExpectStatus(document.u16string() + u"    已从便笺送来 4 个字符");
  EXPECT_EQ(TextOfNote(note), u"一\r\n二") << "the key is no line break";
  box.Select({{3}, 1});
  app.Press("Ctrl+Enter");
  app.ExpectText(u"前一\r\n二二后");
  app.Menu("mnuUndo");
  app.ExpectText(u"前一\r\n二后");

  app.Editor().Select({{0}, 2});
  SetForegroundWindow(app.MainWindow());
  SetFocus(app.Editor().window());
  WaitUntil("the main window to be in front", [&] { return GetForegroundWindow() == app.MainWindow(); });
  app.Press("Ctrl+Shift+N");
  EXPECT_EQ(TextOfNote(note), u"一\r\n二\r\n前一");
  app.Editor().Select({{2}, 0});
  Command(note, mnuNoteTakeSelection);
  app.ExpectBox({.text = u"文档里没有选中的文字！", .icon = Icon::kInformation}).Answer(Answer::kOk);
}

TEST_F(NoteTest, OpensFromTheTray) {
  app.Start();
  app.Minimise();
  app.OpenTrayMenu();
  app.ChooseInPopup(u'N');
  const DialogDriver note = Note();
  EXPECT_NE(IsIconic(app.MainWindow()), FALSE);
  app.OpenTrayMenu();
  app.ChooseInPopup(u'R');
  EXPECT_EQ(IsIconic(app.MainWindow()), FALSE);
  EXPECT_TRUE(note.IsOpen());
}

}  // namespace
}  // namespace scrivanta
