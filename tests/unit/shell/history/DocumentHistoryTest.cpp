#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "FakeControl.h"
#include "shell/history/DocumentHistory.h"

namespace scrivanta {
namespace {

using std::chrono::seconds;

// A control whose changes are told to a history, with a clock that a test turns.
struct Session {
  explicit Session(std::u16string text = {}) : control(std::move(text)) { history.Reset(control); }

  FakeControl control;
  DocumentHistory history;
  DocumentHistory::Time now;

  void Note() { history.NoteChange(control, now); }
  void PlaceCaret(std::size_t position, std::size_t length = 0) {
    control.selection = {{position}, length};
    history.NoteSelection(control);
  }
  void Type(std::u16string_view typed) {
    for (const char16_t unit : typed) {
      control.Type({&unit, 1});
      Note();
    }
  }
  void Paste(std::u16string_view pasted) {
    control.Type(pasted);
    Note();
  }
  void Backspace(int times = 1) {
    for (; times > 0; --times) {
      control.Backspace();
      Note();
    }
  }
  void Delete(int times = 1) {
    for (; times > 0; --times) {
      control.Delete();
      Note();
    }
  }
  void Rebuild(std::u16string_view text) {
    RichText before = control.Capture();
    control.Load(text);
    history.NoteRebuild(control, std::move(before), control.Capture() != nullptr);
  }
  // The states that undoing passes, newest first.
  std::vector<std::u16string> UndoAll() {
    std::vector<std::u16string> texts;
    while (history.Undo(control)) {
      texts.push_back(control.text);
    }
    return texts;
  }
};

TEST(DocumentHistory, TheStartingStateCannotBeUndone) {
  Session session(u"ab");
  EXPECT_FALSE(session.history.canUndo());
  EXPECT_FALSE(session.history.Undo(session.control));
  EXPECT_EQ(session.control.text, u"ab");
  EXPECT_EQ(session.history.UndoEntry(0).Text, u"ab");

  session.Type(u"c");
  EXPECT_TRUE(session.history.canUndo());
  session.history.Allow(false);
  EXPECT_FALSE(session.history.Undo(session.control));
  EXPECT_EQ(session.control.text, u"cab");
}

TEST(DocumentHistory, GathersTypingIntoWordsAndErasingIntoRuns) {
  Session session;
  using States = std::vector<std::u16string>;

  session.Type(u"one two  three\r\rfour");
  EXPECT_EQ(session.UndoAll(),
            (States{u"one two  three\r\r", u"one two  three\r", u"one two  three", u"one two  ", u"one ", u""}));
  session.Type(u"今天，天气 好");
  EXPECT_EQ(session.UndoAll(), (States{u"今天，天气 ", u"今天，", u""}));

  session.Type(u"ab");
  session.now += seconds(10);
  session.Type(u"cd");
  EXPECT_EQ(session.UndoAll(), (States{u"ab", u""})) << "a pause";

  session.Type(u"ab");
  session.PlaceCaret(0);
  session.PlaceCaret(2);
  session.Type(u"cd");
  EXPECT_EQ(session.UndoAll(), (States{u"ab", u""})) << "a caret that has been elsewhere";

  session.Type(u"abc");
  session.Backspace(2);
  session.Type(u"d");
  EXPECT_EQ(session.UndoAll(), (States{u"a", u"abc", u""})) << "another kind of edit";

  session.Paste(u"ab\rcd\r\ref");
  session.PlaceCaret(5);
  session.Backspace(5);
  session.Delete(4);
  EXPECT_EQ(session.UndoAll(), (States{u"ef", u"\ref", u"\r\ref", u"ab\r\ref", u"ab\r\r\ref", u"ab\rcd\r\ref", u""}));
}

// Of a control that tells the formats before something is erased.
TEST(DocumentHistory, WhatIsErasedComesBackWithItsFormats) {
  Session session(u"abcdef");
  session.control.formats = "bbiipp";
  const auto know = [&] { session.history.KnowFormats({0}, *session.control.Formatted({{0}, 6})); };
  session.PlaceCaret(4);
  know();
  session.Backspace();
  session.history.KnowFormats({0}, *session.control.Formatted({{0}, 5}));
  session.Backspace();
  EXPECT_EQ(session.UndoAll(), (std::vector<std::u16string>{u"abcdef"}));
  EXPECT_EQ(session.control.formats, "bbiipp");
  session.history.Redo(session.control);
  EXPECT_EQ(session.control.formats, "bbpp");
  session.history.Undo(session.control);

  // Typed over, and replaced by a command that knows what it does.
  session.PlaceCaret(1, 3);
  know();
  session.Paste(u"x");
  session.PlaceCaret(0);
  session.control.formats = "bxpp";
  ASSERT_TRUE(session.history.Undo(session.control));
  EXPECT_EQ(session.control.formats, "bbiipp");
  session.history.Redo(session.control);
  EXPECT_EQ(session.control.formats, "bxpp") << "as it was when it was undone";
}

// The end of what is replaced, or all of it, stands in the new text again.
TEST(DocumentHistory, WhatIsReplacedByTheSameComesBackWithItsFormats) {
  for (const std::u16string_view pasted : {u"cxd", u"cd"}) {
    Session session(u"abcdef");
    session.control.formats = "bbiipp";
    session.PlaceCaret(2, 2);
    session.history.KnowFormats({0}, *session.control.Formatted({{0}, 6}));
    session.Paste(std::u16string(pasted));
    session.control.formats.replace(2, pasted.size(), std::string(pasted.size(), 'n'));
    session.PlaceCaret(0);
    ASSERT_TRUE(session.history.Undo(session.control));
    EXPECT_EQ(session.control.formats, "bbiipp");
  }
}

TEST(DocumentHistory, FormattingIsAStepThatCostsWhatItChanges) {
  Session session(std::u16string(100'000, u'x'));
  const auto format = [&](std::size_t start, std::size_t length, char letter) {
    const UndoCommand step(session.history, session.control);
    const auto formats = [&](char each) {
      return TextFormats{{{length, std::make_shared<const FormatWords>(FormatWords{{std::string(1, each), ""}})}}, {}};
    };
    const TextFormats before = formats(session.control.formats[start]);
    session.control.Format(start, formats(letter));
    session.history.NoteFormats(session.control, {start}, before, formats(letter));
  };
  const std::size_t atFirst = session.history.history().bytes();
  for (std::size_t i = 0; i < 100; ++i) {
    format(i * 1000, 900, i % 2 == 0 ? 'b' : 'i');
  }
  EXPECT_LT(session.history.history().bytes() - atFirst, 100U * 2000);
  format(0, 900, 'b');
  EXPECT_EQ(session.history.history().done().size(), 100U) << "nothing has changed";
  const std::string formatted = session.control.formats;
  EXPECT_EQ(session.UndoAll().size(), 100U);
  EXPECT_TRUE(session.control.IsPlain());
  while (session.history.Redo(session.control)) {
  }
  EXPECT_EQ(session.control.formats, formatted);
}

TEST(DocumentHistory, ACommandIsOneStepHoweverManyEditsItMakes) {
  Session session(u"a b c");
  {
    const UndoCommand outer(session.history, session.control);
    for (const std::size_t position : {0, 2, 4}) {
      const UndoCommand inner(session.history, session.control);
      session.PlaceCaret(position, 1);
      session.Paste(u"x");
    }
  }
  { const UndoCommand nothingChanged(session.history, session.control); }
  EXPECT_EQ(session.history.history().undoCount(), 2U);
  session.Type(u"y");
  EXPECT_EQ(session.UndoAll(), (std::vector<std::u16string>{u"x x x", u"a b c"}));
  EXPECT_TRUE(session.history.Redo(session.control));
  EXPECT_EQ(session.control.text, u"x x x");
}

TEST(DocumentHistory, EntriesTellTextCaretAndLengthInCharacters) {
  Session session(u"ab\rcd");
  session.PlaceCaret(5);
  session.Type(u"\r");
  session.Type(u"中");
  session.history.Undo(session.control);

  const UndoElement start = session.history.UndoEntry(0);
  EXPECT_EQ(start.Text, u"ab\r\ncd");
  const UndoElement current = session.history.UndoEntry(1);
  EXPECT_EQ(current.Text, u"ab\r\ncd\r\n");
  EXPECT_EQ(current.SelStart, 8);
  EXPECT_EQ(current.TextLen, 8);
  const UndoElement next = session.history.RedoEntry(0);
  EXPECT_EQ(next.Text, u"ab\r\ncd\r\n中");
  EXPECT_EQ(next.SelStart, 9);
  EXPECT_EQ(next.TextLen, 9);
  EXPECT_EQ(Change(current.Text, next.Text, next.SelStart + 1), u"中");
}

TEST(DocumentHistory, SelectsWhatWasSelectedBeforeAndAfterTheChange) {
  Session session(u"one two three");
  session.PlaceCaret(4, 4);
  session.Delete();
  session.PlaceCaret(0);
  session.history.Undo(session.control);
  EXPECT_EQ(session.control.selection, (ControlRange{{4}, 4}));
  session.history.Redo(session.control);
  EXPECT_EQ(session.control.selection, (ControlRange{{4}, 0}));
}

TEST(DocumentHistory, ANewChangeClearsWhatWasUndone) {
  Session session(u"a");
  session.Type(u"b");
  session.history.Undo(session.control);
  EXPECT_TRUE(session.history.canRedo());
  session.Type(u"c");
  EXPECT_FALSE(session.history.canRedo());
  EXPECT_FALSE(session.history.Redo(session.control));
}

TEST(DocumentHistory, LeavesTheFormattingOfUntouchedText) {
  Session session(u"bold plain");
  session.control.formats = "bbbbpppppp";
  session.PlaceCaret(5);
  session.Type(u"new ");
  session.history.Undo(session.control);
  EXPECT_EQ(session.control.formats, "bbbbpppppp");
}

TEST(DocumentHistory, BringsBackTheFormattingThatARebuildTakesAway) {
  for (const bool addsBreak : {false, true}) {
    Session session(u"bold plain");
    session.control.addsBreakToRichText = addsBreak;
    session.control.formats = "bbbbpppppp";
    session.Rebuild(u"plain bold\r\n");
    session.control.formats = "pppppbbbbbp";  // as highlighting leaves it: the text the same, only the colours new
    session.Rebuild(u"plain bold\r\n");
    session.Type(u"x");

    EXPECT_TRUE(session.history.Undo(session.control));
    EXPECT_TRUE(session.history.Undo(session.control));
    EXPECT_EQ(session.control.text, u"plain bold\r");
    EXPECT_EQ(session.control.formats, "pppppbbbbbp");
    EXPECT_TRUE(session.history.Undo(session.control));
    EXPECT_EQ(session.control.text, u"bold plain");
    EXPECT_EQ(session.control.formats, "bbbbpppppp");
    EXPECT_FALSE(session.history.canUndo());

    EXPECT_TRUE(session.history.Redo(session.control));
    EXPECT_EQ(session.control.formats, "pppppbbbbbp");
    EXPECT_TRUE(session.history.Redo(session.control));
    EXPECT_EQ(session.control.formats, "ppppppppppp");
  }
}

TEST(DocumentHistory, TellsWhenTheStepOfARebuildIsUndoneAndRedone) {
  Session session(u"a");
  std::vector<bool> told;
  session.control.Load(u"b");
  session.history.NoteRebuild(session.control, nullptr, false, [&told](bool isUndone) { told.push_back(isUndone); });
  session.Paste(u"c");
  session.history.Undo(session.control);
  EXPECT_TRUE(told.empty());
  session.history.Undo(session.control);
  session.history.Redo(session.control);
  session.history.Redo(session.control);
  EXPECT_EQ(told, (std::vector<bool>{true, false}));
}

TEST(DocumentHistory, ARebuildThatChangesNothingIsNoStep) {
  Session session(u"ab");
  session.Rebuild(u"ab");
  EXPECT_FALSE(session.history.canUndo());
  session.PlaceCaret(2);
  session.Type(u"c");
  session.Rebuild(u"abc");
  EXPECT_TRUE(session.history.Undo(session.control));
  EXPECT_EQ(session.control.text, u"ab");
  session.Rebuild(u"ab");
  EXPECT_TRUE(session.history.Redo(session.control));
  EXPECT_EQ(session.control.text, u"abc");
}

TEST(DocumentHistory, AnInterruptedUndoOrRedoHasChangedNothing) {
  for (const std::string_view formats : {"pppppppppp", "bbbbpppppp"}) {
    Session session(u"bold plain");
    session.control.formats = formats;
    {
      const UndoCommand command(session.history, session.control);
      session.PlaceCaret(10);
      session.Paste(u" text");
      session.Rebuild(u"one line\r\nand another");
      session.PlaceCaret(3);
      session.Paste(u" more");
    }
    session.control.interrupts = true;
    EXPECT_THROW(session.history.Undo(session.control), Interrupted);
    EXPECT_EQ(session.control.text, u"one more line\rand another");
    EXPECT_EQ(session.history.text().Text(), u"one more line\r\nand another");
    EXPECT_FALSE(session.history.canRedo());
    EXPECT_TRUE(session.history.Undo(session.control));
    EXPECT_EQ(session.control.text, u"bold plain");
    EXPECT_EQ(session.control.formats, formats);

    session.control.interrupts = true;
    EXPECT_THROW(session.history.Redo(session.control), Interrupted);
    EXPECT_EQ(session.control.text, u"bold plain");
    EXPECT_EQ(session.history.text().Text(), u"bold plain");
    EXPECT_TRUE(session.history.Redo(session.control));
    EXPECT_EQ(session.control.text, u"one more line\rand another");
  }
}

TEST(DocumentHistory, AChangeThatNobodyToldOfIsAStepOfItsOwn) {
  Session session(u"one two");
  session.PlaceCaret(7);
  session.Type(u"x");
  session.control.selection = {{0}, 3};
  session.control.Type(u"1");
  EXPECT_EQ(session.UndoAll(), (std::vector<std::u16string>{u"one twox", u"one two"}));

  Session fresh(u"one");
  fresh.control.text = u"two";
  fresh.Type(u"x");
  fresh.control.text = u"four";
  {
    const UndoCommand undoing(fresh.history, fresh.control);
    fresh.history.Undo(fresh.control);
    fresh.history.Undo(fresh.control);
  }
  EXPECT_EQ(fresh.control.text, u"one");
  EXPECT_EQ(fresh.history.history().redoCount(), 2U);
}

TEST(DocumentHistory, ForgetsTheOldestStepsWhenTheMemoryIsUsedUp) {
  Session session;
  DocumentHistory history(10'000);
  history.Reset(session.control);
  std::vector<std::u16string> states = {session.control.text};
  for (int step = 0; step < 20; ++step) {
    session.control.selection = {};
    history.NoteSelection(session.control);
    session.control.Type(std::u16string(1000, static_cast<char16_t>(u'a' + step)));
    history.NoteChange(session.control, session.now);
    states.push_back(session.control.text);
  }
  const std::size_t kept = history.history().undoCount();
  EXPECT_GE(kept, 4U);
  EXPECT_LE(kept, 6U);
  EXPECT_LE(history.history().bytes(), 10'000U);
  EXPECT_EQ(history.UndoEntry(0).Text, states[states.size() - kept]);
  while (history.Undo(session.control)) {
  }
  EXPECT_EQ(session.control.text, states[states.size() - kept]);
}

// Any sequence of edits, as a person and commands make them, is undone and redone state by state.
class RandomEdits {
 public:
  explicit RandomEdits(unsigned seed) : random_(seed), session_(u"first line\rsecond line\r") { Remember(); }

  void Run(int rounds) {
    for (int round = 0; round < rounds; ++round) {
      Edit();
      Remember();
      if (Below(20) == 0) {
        Wander();
      }
    }
    GoTo(0);
    ASSERT_FALSE(session_.history.canUndo());
    GoTo(states_.size() - 1);
    ASSERT_FALSE(session_.history.canRedo());
  }

 private:
  std::size_t Below(std::size_t bound) { return std::uniform_int_distribution<std::size_t>(0, bound - 1)(random_); }

  std::u16string SomeText(std::size_t most) {
    std::u16string text;
    for (std::size_t i = Below(most + 1); i > 0; --i) {
      text += u"aab \r中，"[Below(7)];
    }
    return text;
  }

  void Edit() {
    if (Below(3) == 0) {
      const std::size_t start = Below(session_.control.text.size() + 1);
      session_.PlaceCaret(start, Below(2) * Below(session_.control.text.size() - start + 1));
    }
    switch (Below(8)) {
      case 0:
        return session_.Paste(SomeText(40));
      case 1:
        return session_.Backspace();
      case 2:
        return session_.Delete();
      case 3:
        return Command();
      case 4:
        return session_.Rebuild(ToDocumentText(SomeText(60)));
      default:
        return session_.Paste(std::u16string(1, u"aab \r中，"[Below(7)]));
    }
  }

  void Command() {
    const UndoCommand command(session_.history, session_.control);
    for (std::size_t i = Below(4); i > 0; --i) {
      session_.PlaceCaret(Below(session_.control.text.size() + 1));
      session_.Paste(SomeText(5));
    }
    if (Below(3) == 0) {
      session_.Rebuild(ToDocumentText(session_.control.text + SomeText(5)));
    }
  }

  // The state now is that of the newest entry; what was undone before an edit is gone.
  void Remember() {
    states_.resize(session_.history.history().undoCount());
    states_.back() = session_.control.text;
  }

  void Wander() { GoTo(Below(states_.size())); }

  void GoTo(std::size_t entry) {
    while (session_.history.history().undoCount() - 1 > entry) {
      ASSERT_TRUE(session_.history.Undo(session_.control));
      Check();
    }
    while (session_.history.history().undoCount() - 1 < entry) {
      ASSERT_TRUE(session_.history.Redo(session_.control));
      Check();
    }
  }

  void Check() {
    const std::size_t current = session_.history.history().undoCount() - 1;
    ASSERT_EQ(session_.control.text, states_[current]);
    ASSERT_EQ(session_.history.text().Text(), ToDocumentText(states_[current]));
    const std::size_t other = Below(states_.size());
    const UndoElement element =
        other <= current ? session_.history.UndoEntry(other) : session_.history.RedoEntry(states_.size() - 1 - other);
    ASSERT_EQ(element.Text, ToDocumentText(states_[other]));
  }

  std::mt19937 random_;
  Session session_;
  std::vector<std::u16string> states_;
};

TEST(DocumentHistory, UndoesAndRedoesRandomEdits) {
  for (unsigned seed = 0; seed < 30; ++seed) {
    SCOPED_TRACE(seed);
    RandomEdits(seed).Run(120);
    if (HasFatalFailure()) {
      return;
    }
  }
}

TEST(DocumentHistory, AThousandStepsOnALargeDocumentAreSmallAndReadLittle) {
  std::u16string text;
  while (text.size() < 5'000'000) {
    text += u"每一行都有一些字 and some more of it\r";
  }
  Session session(text);
  session.control.unitsRead = 0;
  std::mt19937 random(1);
  for (int step = 0; step < 1000; ++step) {
    session.PlaceCaret(std::uniform_int_distribution<std::size_t>(text.size() / 10 * 9, text.size())(random));
    session.Paste(u"一个新词 ");
  }
  EXPECT_EQ(session.history.history().undoCount(), 1001U);
  EXPECT_LT(session.history.history().bytes(), 1'000'000U);
  EXPECT_LT(session.control.unitsRead, 1000U * 1000U);
  while (session.history.Undo(session.control)) {
  }
  EXPECT_EQ(session.history.history().redoCount(), 1000U);
  EXPECT_EQ(session.control.text, text);
}

TEST(DocumentHistory, AMarkedPartFollowsEveryEdit) {
  struct Case {
    ControlRange replaced;
    std::u16string_view by;
    std::optional<std::u16string> marked;  // the text of the part afterwards
  };
  // "01[2345]67", the part in brackets marked.
  const Case cases[] = {{{{0}, 0}, u"ab", u"2345"}, {{{0}, 2}, u"", u"2345"},      {{{6}, 2}, u"x", u"2345"},
                        {{{2}, 0}, u"a", u"a2345"}, {{{6}, 0}, u"a", u"2345a"},    {{{3}, 2}, u"abc", u"2abc5"},
                        {{{2}, 4}, u"ab", u"ab"},   {{{1}, 2}, u"ab", u"345"},     {{{5}, 2}, u"ab", u"234"},
                        {{{2}, 4}, u"", u""},       {{{1}, 6}, u"x", std::nullopt}};
  for (const Case& one : cases) {
    Session session(u"01234567");
    session.history.Mark(ControlRange{{2}, 4});
    session.PlaceCaret(one.replaced.start.value, one.replaced.length);
    session.Paste(one.by);
    const auto marked = [&session] {
      const auto& part = session.history.marked();
      return part ? std::optional(session.control.text.substr(part->start.value, part->length)) : std::nullopt;
    };
    EXPECT_EQ(marked(), one.marked) << std::string(one.by.begin(), one.by.end());
    if (one.replaced.start.value >= 2 && one.replaced.end().value <= 6) {
      session.history.Undo(session.control);
      EXPECT_EQ(marked(), u"2345");
      session.history.Redo(session.control);
      EXPECT_EQ(marked(), one.marked);
    }
    session.history.Reset(session.control);
    EXPECT_EQ(session.history.marked(), std::nullopt);
  }
  // A change of the whole that comes back as rich text.
  Session session(u"head\rmarked\r");
  session.control.formats[0] = 'b';
  session.history.Mark(ControlRange{{5}, 6});
  session.Rebuild(u"longer head\r\nmarked\r\n");
  EXPECT_EQ(session.history.marked(), (ControlRange{{12}, 6}));
  session.history.Undo(session.control);
  EXPECT_EQ(session.history.marked(), (ControlRange{{5}, 6}));
}

}  // namespace
}  // namespace scrivanta
