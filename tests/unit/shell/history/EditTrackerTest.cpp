#include <random>
#include <string>

#include <gtest/gtest.h>

#include "FakeControl.h"
#include "shell/history/EditTracker.h"

namespace scrivanta {
namespace {

TEST(EditTracker, FindsWhatAPersonDidFromTheSurroundingsAlone) {
  struct Case {
    std::string_view name;
    ControlRange before;
    void (*act)(FakeControl&);
    std::u16string removed;
    std::u16string inserted;
  };
  const Case cases[] = {
      {"typed", {{5000}, 0}, [](FakeControl& box) { box.Type(u"x"); }, u"", u"x"},
      {"typed over a selection", {{5000}, 3}, [](FakeControl& box) { box.Type(u"x"); }, u"012", u"x"},
      {"pasted", {{5001}, 0}, [](FakeControl& box) { box.Type(u"\rab\rc"); }, u"", u"\rab\rc"},
      {"pasted over what it resembles", {{5000}, 4}, [](FakeControl& box) { box.Type(u"0xy3"); }, u"12", u"xy"},
      {"erased backwards", {{5000}, 0}, [](FakeControl& box) { box.Backspace(); }, u"9", u""},
      {"erased forwards", {{5000}, 0}, [](FakeControl& box) { box.Delete(); }, u"0", u""},
      {"cut", {{4998}, 5}, [](FakeControl& box) { box.Delete(); }, u"89012", u""},
      {"typed at the start", {{0}, 0}, [](FakeControl& box) { box.Type(u"x"); }, u"", u"x"},
      {"typed at the end", {{10000}, 0}, [](FakeControl& box) { box.Type(u"x"); }, u"", u"x"},
      {"a surrogate pair goes whole",
       {{5000}, 0},
       [](FakeControl& box) { box.Type(u"\U0001F600"); },
       u"",
       u"\U0001F600"},
      {"all deleted", {{0}, 10000}, [](FakeControl& box) { box.Delete(); }, u"", u""},
  };
  for (const Case& one : cases) {
    SCOPED_TRACE(one.name);
    std::u16string text;
    while (text.size() < 10000) {
      text += u"0123456789";
    }
    FakeControl control(text);
    TextMirror known(ToDocumentText(text));
    control.selection = one.before;
    one.act(control);
    const ControlEdit edit = FindEdit(known, one.before, control);
    if (!control.text.empty()) {
      EXPECT_EQ(edit.removed, one.removed);
      EXPECT_EQ(edit.inserted, one.inserted);
    }
    EXPECT_LT(control.unitsRead, 500U);
    known.Replace(edit.removedRange(), edit.inserted);
    EXPECT_EQ(known.ControlText({{0}, known.length()}), control.text);
  }
}

// Whatever the selection before is said to have been, and wherever the caret stands now.
TEST(EditTracker, FindsAnyEditByReadingTheWholeText) {
  std::mt19937 random(3);
  const auto below = [&random](std::size_t bound) {
    return std::uniform_int_distribution<std::size_t>(0, bound - 1)(random);
  };
  FakeControl control(u"\U0001F600\U0001F601 and so on");
  TextMirror known(ToDocumentText(control.text));
  for (int round = 0; round < 3000; ++round) {
    const ControlRange toldBefore = {{below(control.text.size() + 1)}, below(2)};
    const std::size_t start = below(control.text.size() + 1);
    const std::size_t removed = std::min(below(control.text.size() > 90 ? 90 : 12), control.text.size() - start);
    std::u16string inserted;
    for (std::size_t i = below(11); i > 0; --i) {
      inserted += below(3) == 0 ? u"\r" : below(2) == 0 ? u"\U0001F600" : u"\U0001F601";
    }
    control.text.replace(start, removed, inserted);
    control.selection = {{below(control.text.size() + 1)}, 0};
    // The samples that are compared cover a text as short as this one, so a wrong guess is always noticed.
    const ControlEdit edit = FindEdit(known, toldBefore, control);
    known.Replace(edit.removedRange(), edit.inserted);
    ASSERT_EQ(known.ControlText({{0}, known.length()}), control.text) << round;
    ASSERT_EQ(known.Text(), ToDocumentText(control.text));
  }
}

TEST(EditTracker, NeverCutsASurrogatePair) {
  const TextMirror known(u"a\U0001F600b\U0001F600c");
  const ControlEdit highHalfAlike = Difference(known, u"a\U0001F601b\U0001F600c");
  EXPECT_EQ(highHalfAlike.removed, u"\U0001F600");
  EXPECT_EQ(highHalfAlike.inserted, u"\U0001F601");
  const ControlEdit lowHalfAlike = Difference(known, u"a\U0001F600b\U00020200c");
  EXPECT_EQ(lowHalfAlike.removed, u"\U0001F600");
  EXPECT_EQ(lowHalfAlike.inserted, u"\U00020200");
}

TEST(TextMirror, LineBreaksOfEveryKindBecomeOne) {
  EXPECT_EQ(ToControlText(u"a\r\nb\nc\rd\r\r\n\n"), u"a\rb\rc\rd\r\r\r");
  EXPECT_EQ(ToDocumentText(u"a\r\rb\r"), u"a\r\n\r\nb\r\n");
  const TextMirror text(u"a\nb");
  EXPECT_EQ(text.Text(), u"a\r\nb");
  EXPECT_EQ(text.Text(TextRange{{2}, 2}), u"\r\nb");
}

}  // namespace
}  // namespace scrivanta
