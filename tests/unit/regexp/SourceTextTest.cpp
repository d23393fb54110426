#include <gtest/gtest.h>

#include "regexp/services/RegExpServices.h"
#include "regexp/services/SourceText.h"
#include "support/TemporaryFolder.h"
#include "text/ExplainedError.h"
#include "text/PlatformFile.h"

namespace scrivanta {
namespace {

class SourceTextTest : public ::testing::Test {
 protected:
  std::u16string Put(std::string_view bytes) { return TextOfPath(folder_.Put("甲.txt", bytes)); }
  static std::string Bytes(const std::u16string& path) { return ReadWholeFile(PathOfText(path)); }

  testing::TemporaryFolder folder_;
  NoProgress progress_;
  const RegExpEngine& engine_ = BuiltInRegExpEngine();
};

TEST_F(SourceTextTest, IsTheTextItselfUnlessAFileOfThatNameExists) {
  const std::u16string file = Put("\xD6\xD0\n");
  EXPECT_EQ(SourceText(file).text(), u"中\r\n");
  const std::u16string texts[] = {u"",           TextOfPath(folder_.path()),      file + u"x",
                                  file + u"\n",  file + std::u16string(1, u'\0'), std::u16string(100'000, u'a'),
                                  u"\xD800 <|>?"};
  for (const std::u16string& text : texts) {
    EXPECT_EQ(SourceText(text).text(), text);
    EXPECT_NO_THROW(SourceText(text).Write(u"new"));
  }
  EXPECT_EQ(Bytes(file), "\xD6\xD0\n");
}

TEST_F(SourceTextTest, ExtractsFromAFileAndWritesTheResultBack) {
  const std::u16string file = Put("a1\nb22\n");
  std::vector<std::u16string> matches;
  EXPECT_EQ(RegExpExtract(engine_, file, u"\\d+", {}, WriteBack::kNo, progress_, &matches), u"1\r\n22");
  EXPECT_EQ(matches, (std::vector<std::u16string>{u"1", u"22"}));
  EXPECT_EQ(Bytes(file), "a1\nb22\n");
  EXPECT_EQ(RegExpExtract(engine_, file, u"x", {}, WriteBack::kYes, progress_), u"");
  EXPECT_EQ(Bytes(file), "a1\nb22\n") << "an empty result is not written";
  RegExpExtract(engine_, file, u"\\d+", {}, WriteBack::kYes, progress_);
  EXPECT_EQ(Bytes(file), "1\n22");
  EXPECT_EQ(RegExpExtract(engine_, u"7", u"\\d", {}, WriteBack::kYes, progress_), u"7");
}

TEST_F(SourceTextTest, ReplacesInAFileInItsEncodingAndWithItsLineEnds) {
  struct Case {
    std::string before;
    std::string after;
  };
  const Case cases[] = {
      {"", ""},
      {"a1\r\n\xD6\xD0\r\n", "a\xD6\xD0\r\n\xD6\xD0\r\n"},
      {"\xEF\xBB\xBF"
       "a1\n",
       "\xEF\xBB\xBF"
       "a\xE4\xB8\xAD\n"},
      {"1\na\r\n\r\xFF", "\xD6\xD0\na\r\n\r\xFF"},
      {std::string("\0\x31\n", 3), std::string("\0\xD6\xD0\n", 4)},
  };
  for (const Case& c : cases) {
    const std::u16string file = Put(c.before);
    const std::u16string kept = RegExpReplace(engine_, file, u"\\d", u"中", {}, WriteBack::kNo, progress_);
    EXPECT_EQ(Bytes(file), c.before);
    EXPECT_EQ(RegExpReplace(engine_, file, u"\\d", u"中", {}, WriteBack::kYes, progress_), kept);
    EXPECT_EQ(Bytes(file), c.after);
  }
}

TEST_F(SourceTextTest, FiltersAFileWithoutTouchingIt) {
  const std::u16string file = Put("a1\r\nb\r\n");
  EXPECT_EQ(RegExpMarkerFilter(engine_, file, u"^b$|1", MarkerFilterMode::kExtract, false, progress_), u"1\r\nb\r\n");
  EXPECT_EQ(RegExpMarkerFilter(engine_, file, u"^b$|1", MarkerFilterMode::kRemove, false, progress_), u"a\r\n");
  EXPECT_EQ(Bytes(file), "a1\r\nb\r\n");
}

TEST_F(SourceTextTest, ReplacesSeveralTextsInAFile) {
  const std::u16string file = Put("A b\n");
  EXPECT_THROW(MultiReplaceInFile(file, u"a|b", u"x", true, progress_), ExplainedError);
  EXPECT_EQ(Bytes(file), "A b\n");
  MultiReplaceInFile(file, u"a|b", u"x|中", true, progress_);
  EXPECT_EQ(Bytes(file), "x \xD6\xD0\n");
  EXPECT_EQ(MultiReplaceInFile(u"ab", u"a", u"c", false, progress_), u"cb");
}

}  // namespace
}  // namespace scrivanta
