#include <random>

#include <gtest/gtest.h>

#include "text/LiteralFinder.h"
#include "text/UpperCase.h"

namespace scrivanta {
namespace {

TEST(UpperCase, IsOfOneCharacterAndKeepsAsciiApart) {
  EXPECT_EQ(UpperCase(u"aZ1中éжÿµß"), u"AZ1中ÉЖŸΜß");
  EXPECT_EQ(UpperCase(u"\x0131\x017F\xFF41\xD83D"), u"\x0131\x017F\xFF21\xD83D");
}

// Short texts of few letters against a search that cannot be wrong.
TEST(LiteralFinder, AgreesWithASearchOfEveryPlace) {
  std::mt19937 random(1);
  const std::u16string letters = u"aAb中";
  const auto make = [&](std::size_t length) {
    std::u16string text;
    for (std::size_t i = 0; i < length; ++i) {
      text += letters[random() % letters.size()];
    }
    return text;
  };
  NoProgress progress;
  for (int round = 0; round < 3000; ++round) {
    const std::u16string needle = make(1 + random() % 3);
    const std::u16string text = make(random() % 12);
    const bool ignoreCase = random() % 2 == 0;
    const std::size_t from = random() % 13;
    const LiteralFinder finder(needle, ignoreCase);
    std::size_t next = LiteralFinder::kNotFound;
    std::size_t last = LiteralFinder::kNotFound;
    for (std::size_t i = 0; i + needle.size() <= text.size(); ++i) {
      const std::u16string here = text.substr(i, needle.size());
      if (ignoreCase ? UpperCase(here) == UpperCase(needle) : here == needle) {
        if (i >= from && next == LiteralFinder::kNotFound) {
          next = i;
        }
        if (i < from) {
          last = i;
        }
      }
    }
    ASSERT_EQ(finder.Find(text, from, progress), next);
    ASSERT_EQ(finder.FindBackward(text, from, progress), last);
  }
}

TEST(LiteralFinder, FindsAcrossTheStretchesOfALongText) {
  NoProgress progress;
  const LiteralFinder finder(u"needle", true);
  for (const std::size_t place : {1'048'570U, 1'048'575U, 1'048'576U, 2'000'000U}) {
    std::u16string text(3'000'000, u'n');
    text.replace(place, 6, u"Needle");
    EXPECT_EQ(finder.Find(text, 0, progress), place);
    EXPECT_EQ(finder.FindBackward(text, text.size(), progress), place);
  }
}

}  // namespace
}  // namespace scrivanta
