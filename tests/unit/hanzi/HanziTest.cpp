#include <gtest/gtest.h>

#include "hanzi/Hanzi.h"
#include "hanzi/ReadHanzi.h"

namespace scrivanta {
namespace {

std::u16string Read(std::u16string_view text, ReadAs readAs = ReadAs::kText) {
  std::vector<Reading> readings;
  ReadHanzi(text, readAs, readings);
  std::u16string spelled;
  for (const Reading reading : readings) {
    spelled += spelled.empty() ? u"" : u" ";
    spelled += reading.syllable() == kNoSyllable ? u"-" : SpellingOf(reading.syllable());
    spelled += reading.isDoubtful() ? u"?" : u"";
  }
  return spelled;
}

TEST(HanziTest, ReadsCharactersInTheirPhrases) {
  struct Case {
    std::u16string_view text;
    std::u16string_view reading;
  };
  constexpr Case kCases[] = {
      {u"重庆", u"chóng qìng"},
      {u"重", u"zhòng?"},
      {u"不便宜", u"bù pián yí"},  // and 不便 of the same characters
      // A phrase that begins earlier keeps the later one away.
      {u"双重庆祝", u"shuāng chóng qìng zhù"},
      {u"银行行长", u"yín háng háng zhǎng"},
      {u"单于", u"chán yú"},
      {u"会计", u"kuài jì"},
      {u"番禺", u"pān yú"},
      {u"都江堰", u"dū jiāng yàn"},
      {u"女", u"nǚ"},
      {u"〇", u"líng"},
      {u"嗯", u"en?"},
      {u"\xF92C", u"láng"},  // a compatibility form of 郎
      {u"a1，", u"- - -"},
      {u"重\xD800", u"zhòng? -"},
      {u"𩽾重庆", u"ān - chóng qìng"},
      {u"", u""},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(Read(c.text), c.reading);
  }
}

TEST(HanziTest, ReadsSurnamesOnlyOfNamesAndOnlyAtTheirBeginning) {
  struct Case {
    std::u16string_view text;
    std::u16string_view asName;
    std::u16string_view asText;
  };
  constexpr Case kCases[] = {
      {u"单曾", u"shàn céng?", u"dān? céng?"},
      {u"尉迟恭", u"yù chí gōng", u"wèi? chí gōng"},
      {u"1. 曾经", u"- - - zēng jīng", u"- - - céng jīng"},
      {u"王单", u"wáng dān?", u"wáng dān?"},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(Read(c.text, ReadAs::kName), c.asName);
    EXPECT_EQ(Read(c.text), c.asText);
  }
}

TEST(HanziTest, NumbersSyllablesAndStrokesInTheOrderOfDictionaries) {
  const std::u16string_view bySyllable = u"阿啊八路陆吕乱略论王";
  for (std::size_t i = 1; i < bySyllable.size(); ++i) {
    EXPECT_LE(HanziData::Get().ReadingOf(bySyllable[i - 1]).syllable(),
              HanziData::Get().ReadingOf(bySyllable[i]).syllable())
        << i;
  }
  const std::u16string_view byStrokes = u"一丁七三上不龘";
  for (std::size_t i = 1; i < byStrokes.size(); ++i) {
    EXPECT_LT(HanziData::Get().StrokePlaceOf(byStrokes[i - 1]), HanziData::Get().StrokePlaceOf(byStrokes[i])) << i;
  }
  EXPECT_EQ(HanziData::Get().StrokePlaceOf(U'a'), 0);
  EXPECT_EQ(OtherInitialsOf(U'单'), u"CS");
}

TEST(HanziTest, SpellsInitialsWithPlainLetters) {
  for (char32_t c = 0; c < 0x110000; ++c) {
    const Syllable syllable = HanziData::Get().ReadingOf(c).syllable();
    if (syllable != kNoSyllable) {
      ASSERT_TRUE(InitialOf(syllable) >= u'A' && InitialOf(syllable) <= u'Z') << static_cast<unsigned>(c);
    }
  }
}

}  // namespace
}  // namespace scrivanta
