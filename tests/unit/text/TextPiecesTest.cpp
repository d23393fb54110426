#include <algorithm>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "text/TextPieces.h"

namespace scrivanta {
namespace {

using namespace std::string_literals;

// Letters that are kept, with * for what is new: "ab*" made of "xaby".
std::u16string Kept(std::u16string_view before, std::u16string_view after) {
  std::u16string shown;
  for (const TextPiece& piece : MatchTexts(before, after)) {
    shown +=
        piece.isKept ? std::u16string(before.substr(piece.from, piece.length)) : std::u16string(piece.length, u'*');
  }
  return shown;
}

TEST(TextPieces, LinesAreFoundWhereverTheyHaveGone) {
  EXPECT_EQ(Kept(u"pear\rapple\rfig", u"apple\rfig\rpear"), u"apple\rfig*pear");
  EXPECT_EQ(Kept(u"one\r\rtwo\r\rthree", u"one\rtwo\rthree"), u"one\rtwo\rthree");
  EXPECT_EQ(Kept(u"  one \r\u3000two\r ", u"one\rtwo\r"), u"one\rtwo\r");
  // Of two that are the same each goes its own way.
  const TextPieces pieces = MatchTexts(u"x\rb\rx\ra", u"a\rb\rx\rx");
  EXPECT_EQ(Kept(u"x\rb\rx\ra", u"a\rb\rx\rx").find(u"x\rx"), 4U);
  EXPECT_FALSE(KeepsOrder(pieces));
  // The last line of a text has no end that could go along.
  EXPECT_EQ(Kept(u"b\ra", u"a\rb"), u"a*b");
}

TEST(TextPieces, OfAChangedLineStaysWhatIsInBoth) {
  EXPECT_EQ(Kept(u"same\rcat sat\rend", u"same\rdog sat\rend"), u"same\r*** sat\rend");
  EXPECT_EQ(Kept(u"abcdef", u"ACE"), u"***");
  EXPECT_EQ(Kept(u"a-b-c", u"abc"), u"abc");
  EXPECT_EQ(Kept(u"abc", u"a, b, c"), u"a**b**c");
  EXPECT_EQ(Kept(u"one two three", u"1 two 3"), u"* two *");
  // Breaking and joining lines.
  EXPECT_EQ(Kept(u"abcdefgh", u"abc\rdef\rgh"), u"abc*def*gh");
  EXPECT_EQ(Kept(u"abc\rdef\rgh", u"abcdefgh"), u"abcdefgh");
  // What is new stands for what has gone.
  EXPECT_EQ(MatchTexts(u"ab cat", u"ab dogs"), (TextPieces{{0, 3, true}, {3, 4, false}}));
  // A pair of surrogates is kept whole or not at all.
  EXPECT_EQ(MatchTexts(u"a\xD83D\xDE00", u"a\xD83D\xDE01"), (TextPieces{{0, 1, true}, {1, 2, false}}));
}

TEST(TextPieces, APlaceGoesWithItsLine) {
  const auto after = [](std::u16string_view before, std::u16string_view text, std::size_t place) {
    return PlaceAfter(MatchTexts(before, text), before, place);
  };
  EXPECT_EQ(after(u"pear\rapple\rfig", u"apple\rfig\rpear", 2), 12U);
  EXPECT_EQ(after(u"pear\rapple\rfig", u"apple\rfig\rpear", 4), 14U);
  EXPECT_EQ(after(u"  one\r  two", u"one\rtwo", 7), 4U);
  EXPECT_EQ(after(u"  one  \r  two", u"one\rtwo", 7), 3U);
  // The line is gone: to the nearest one.
  EXPECT_EQ(after(u"one\rtwo\rthree\rfour", u"one\rtwo\rfour", 9), 7U);
  EXPECT_EQ(after(u"one\rtwo\rthree", u"three", 1), 0U);
  EXPECT_EQ(after(u"one\rtwo\r", u"one\rtwo\r", 8), 8U);
  EXPECT_EQ(after(u"one", u"", 2), 0U);
}

// Of any two texts.
TEST(TextPieces, CoverTheNewTextAndKeepNothingTwice) {
  std::mt19937 random(20261125);
  const auto any = [&random](std::size_t below) { return static_cast<std::size_t>(random() % below); };
  const std::u16string units = u"ab \r\rc\xD83D\xDE00\t中";
  for (int round = 0; round < 3000; ++round) {
    std::u16string before;
    for (std::size_t length = any(60); before.size() < length;) {
      before += units[any(units.size())];
    }
    std::u16string after = before;
    for (std::size_t changes = any(6); changes > 0; --changes) {
      const std::size_t at = any(after.size() + 1);
      after.replace(at, any(8), any(2) == 0 ? before.substr(0, any(6)) : u"z\r"s.substr(0, any(3)));
    }
    const TextPieces pieces = MatchTexts(before, after);
    std::u16string made = before;
    std::vector<bool> isKept(before.size());
    std::size_t at = 0;
    for (const TextPiece& piece : pieces) {
      ASSERT_GT(piece.length, 0U);
      ASSERT_LE(piece.from, before.size());
      for (std::size_t i = 0; piece.isKept && i < piece.length; ++i) {
        ASSERT_EQ(before.at(piece.from + i), after.at(at + i));
        ASSERT_FALSE(isKept.at(piece.from + i));
        isKept[piece.from + i] = true;
      }
      at += piece.length;
    }
    ASSERT_EQ(at, after.size());
    ASSERT_LE(PlaceAfter(pieces, before, any(before.size() + 1)), after.size());
    const TextPieces inOrder = InOrder(pieces);
    ASSERT_TRUE(KeepsOrder(inOrder));
    ASSERT_TRUE(!KeepsOrder(pieces) || inOrder == pieces);
    {
      std::u16string changed = before;
      const std::vector<TextChange> changes = ChangesOf(inOrder, before.size());
      for (auto change = changes.rbegin(); change != changes.rend(); ++change) {
        changed.replace(change->oldStart, change->oldLength, after.substr(change->newStart, change->newLength));
      }
      ASSERT_EQ(changed, after);
    }
  }
}

}  // namespace
}  // namespace scrivanta
