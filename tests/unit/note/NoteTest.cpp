// The notes: how they are kept, what their windows decide, their search.
#include <gtest/gtest.h>

#include "note/NoteDialog.h"
#include "note/NoteSearch.h"
#include "regexp/RegExpErrors.h"
#include "support/ScriptedWorkbench.h"

namespace scrivanta {
namespace {

using std::chrono::milliseconds;

class Controls final : public NoteView {
 public:
  std::u16string Text() const override { return text; }
  std::u16string SelectedText() const override { return selected; }
  void SetText(const std::u16string& newText) override { text = newText; }
  void Append(const std::u16string& more) override { text += more; }
  void ApplyLook(const NoteLook& look) override { shown = look; }
  void ReadPlace(NoteLook& look) const override {
    look.left = left;
    look.width = 3000;
    look.height = 2000;
  }

  std::u16string text;
  std::u16string selected;
  NoteLook shown;
  int left = 100;
};

class NoteTest : public ::testing::Test {
 protected:
  NoteDialog Open(const std::string& name) {
    std::unique_ptr<FileClaim> claim = store.Claim(name);
    EXPECT_TRUE(claim);
    NoteDialog note(workbench, store, name, std::move(claim));
    note.Open(view);
    return note;
  }

  testing::TemporaryFolder folder;
  NoteStore store{folder.path() / "Notes"};
  testing::ScriptedWorkbench workbench;
  Controls view;
  NoteDialog::Time start;
};

TEST_F(NoteTest, BytesKeepTextAndLook) {
  const Note note{.text = u"第一行\r\n\r\nopacity=1\r\n\xD83D\xDE00\xDC80",
                  .look = {.left = -30,
                           .top = 40,
                           .width = 5000,
                           .height = 600,
                           .font = {.name = u"黑体", .size = 12, .colour = 255, .bold = true},
                           .paper = 0x00ABCDEF,
                           .opacity = 60,
                           .isOpen = false}};
  const std::string bytes = BytesOfNote(note);
  EXPECT_EQ(ReadNote(bytes), note);
  // Nothing of the text is lost, whatever has become of the head.
  for (std::size_t length = 0; length <= bytes.size(); ++length) {
    ReadNote(std::string_view(bytes).substr(0, length));
  }
  EXPECT_EQ(ReadNote("just\r\n\r\ntext").text, u"just\r\n\r\ntext");
  const Note odd = ReadNote("Scrivanta.Note\r\nopacity=0\r\nwidth=999999999999\r\npaper=-1\r\nx\r\n\r\ny");
  EXPECT_EQ(odd.look.opacity, kLeastOpacity);
  EXPECT_EQ(odd.look.width, 1'000'000);
  EXPECT_EQ(odd.text, u"y");
  EXPECT_EQ(TitleOfNote(u"\r\n 　购物\r\n牛奶"), u"购物");
  EXPECT_EQ(TitleOfNote(u" \r\n"), u"空便笺");
}

TEST_F(NoteTest, IsKeptInAPauseAndInTheMidstOfLongTyping) {
  NoteDialog note = Open("000001");
  view.text = u"一";
  note.NoteChange(start);
  note.Tick(view, start + milliseconds{900});
  EXPECT_TRUE(store.List().empty());
  note.Tick(view, start + milliseconds{1000});
  EXPECT_EQ(store.Read("000001").text, u"一");

  for (int tenth = 0; tenth < 50; ++tenth) {
    note.NoteChange(start + milliseconds{2000 + 100 * tenth});
  }
  view.text = u"二";
  note.Tick(view, start + milliseconds{6950});
  EXPECT_EQ(store.Read("000001").text, u"一");
  note.Tick(view, start + milliseconds{7000});
  EXPECT_EQ(store.Read("000001").text, u"二");
  EXPECT_EQ(store.Read("000001").look.width, 3000);
}

TEST_F(NoteTest, WhatCannotBeKeptIsToldOnceAndTriedAgain) {
  NoteDialog note = Open("000001");
  view.text = u"要紧";
  std::filesystem::create_directory(folder.path() / "Notes" / "000001.note");
  note.NoteChange(start);
  EXPECT_THROW(note.Tick(view, start + milliseconds{1000}), FileError);
  EXPECT_NO_THROW(note.Tick(view, start + milliseconds{1300}));
  EXPECT_THROW(note.Close(view, true), FileError);
  std::filesystem::remove(folder.path() / "Notes" / "000001.note");
  note.NoteChange(start + milliseconds{2000});
  note.Tick(view, start + milliseconds{3000});
  EXPECT_EQ(store.Read("000001").text, u"要紧");
}

TEST_F(NoteTest, SeveralAreListedAndFoundAgain) {
  {
    NoteDialog first = Open("000001");
    view.text = u"甲";
    first.NoteChange(start);
    first.Close(view, false);  // the program ends
    EXPECT_EQ(store.NewName(), "000002");
    NoteDialog second = Open("000002");
    EXPECT_EQ(view.text, u"");
    EXPECT_EQ(store.NewName(), "000003") << "one that is new has its name already";
    EXPECT_FALSE(store.Claim("000002")) << "nobody else has it";
    view.text = u"乙";
    second.Close(view, true);
    view.text.clear();
    Open("000003").Close(view, true);  // nothing was written into it
  }
  const std::vector<NoteEntry> notes = store.List();
  ASSERT_EQ(notes.size(), 2U);
  EXPECT_TRUE(notes[0].title == u"甲" && notes[0].isOpen);
  EXPECT_TRUE(notes[1].title == u"乙" && !notes[1].isOpen);

  NoteDialog again = Open("000001");
  EXPECT_EQ(view.shown.left, 100);
  workbench.prompts().Will(Answer::kNo);
  EXPECT_FALSE(again.Delete());
  workbench.prompts().Will(Answer::kYes);
  EXPECT_TRUE(again.Delete());
  EXPECT_EQ(workbench.prompts().messages[0].defaultAnswer, Answer::kNo);
  again.Tick(view, start + milliseconds{9000});
  EXPECT_EQ(store.List().size(), 1U);
}

TEST_F(NoteTest, ChangesTextWithTheDocumentAndItsLook) {
  NoteDialog note = Open("000001");
  workbench.editor().Open(u"前后", {{1}, 0});
  view.text = u"全部";
  note.PutIntoDocument(view);
  view.selected = u"部";
  note.PutIntoDocument(view);
  EXPECT_EQ(workbench.editor().Text(), u"前全部部后");
  EXPECT_EQ(workbench.editor().changes, 2);
  note.TakeText(view, u"又", start);
  EXPECT_EQ(view.text, u"全部\r\n又");

  workbench.prompts().Will(std::u16string(u"字号：20"));
  note.AskForFont(view, start);
  workbench.prompts().Will(std::u16string(u"5"));
  note.AskForOpacity(view, start);
  note.SetPaper(view, 0x00112233, start);
  workbench.prompts().Will(std::u16string());
  note.AskForOpacity(view, start);
  note.Tick(view, start + milliseconds{1000});
  const NoteLook kept = store.Read("000001").look;
  EXPECT_TRUE(kept.font.size == 20 && kept.opacity == kLeastOpacity && kept.paper == 0x00112233);
  EXPECT_EQ(view.shown, kept);
}

TEST(NoteSearch, FindsAllPlacesAndGoesAround) {
  NoteSearch search;
  search.Find(u"Ab\rab\raB ab", u"AB", false, BuiltInRegExpEngine());
  ASSERT_EQ(search.places().size(), 4U);
  EXPECT_EQ(search.From(0), 0U);
  EXPECT_EQ(search.From(1), 1U);
  EXPECT_EQ(search.From(10), 0U);
  EXPECT_EQ(search.Before(3), 0U);
  EXPECT_EQ(search.Before(0), 3U);
  EXPECT_EQ(search.CountText(2), u"3/4");
  EXPECT_EQ(search.CountText({}), u"0/4");
  search.Find(u"Ab\rab\raB ab", u"^a.$|x*", true, BuiltInRegExpEngine());
  EXPECT_EQ(search.places(), (std::vector<NotePlace>{{0, 2}, {3, 2}}));
  EXPECT_THROW(search.Find(u"a", u"(", true, BuiltInRegExpEngine()), RegExpSyntaxError);
  EXPECT_EQ(search.From(0), std::nullopt);
  search.Find(u"a", u"", true, BuiltInRegExpEngine());
  EXPECT_EQ(search.CountText({}), u"0/0");
}

}  // namespace
}  // namespace scrivanta
