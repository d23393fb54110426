#include <random>

#include <gtest/gtest.h>

#include "support/ScriptedWorkbench.h"
#include "tables/InitialsDialog.h"
#include "tables/PinyinInitials.h"

namespace scrivanta::testing {
namespace {

struct Result {
  std::u16string lines;
  std::u16string doubtful;
};

std::string AddedInitials(const std::string& bytes, const InitialsOptions& options,
                          std::vector<DoubtfulCharacter>* doubtful) {
  MemorySource source(bytes);
  NoProgress progress;
  LineReader in(source, LineEnds::kCrLfOrLf, progress);
  StringSink sink;
  LineWriter out(sink);
  AddInitials(in, out, options, doubtful);
  out.Flush();
  return sink.bytes();
}

Result Initials(std::u16string_view text, InitialsOptions options) {
  std::vector<DoubtfulCharacter> doubtful;
  const std::string bytes = Encode(options.encoding, text);
  Result result{Decode(options.encoding, AddedInitials(bytes, options, &doubtful)), {}};
  for (const DoubtfulCharacter& character : doubtful) {
    result.doubtful += DescribeDoubtful(character) + u"\n";
  }
  return result;
}

TEST(PinyinInitials, StandWhereTheyAreWanted) {
  constexpr std::u16string_view kLines = u"重庆 Ａ4，“b”\n\n。\n曾";
  struct Case {
    InitialsOptions options;
    std::u16string_view lines;
  };
  const Case cases[] = {
      {{}, u"CQＡ4b 重庆 Ａ4，“b”\r\n\r\n。\r\nC 曾\r\n"},
      {{.place = InitialsPlace::kBehind, .small = true}, u"重庆 Ａ4，“b” cqＡ4b\r\n\r\n。\r\n曾 c\r\n"},
      {{.place = InitialsPlace::kColumn, .firstOnly = true}, u"重庆 Ａ4，“b”\tC\r\n\t\r\n。\t\r\n曾\tC\r\n"},
      {{.place = InitialsPlace::kOnly, .readAs = ReadAs::kName}, u"CQＡ4b\r\n\r\n\r\nZ\r\n"},
  };
  for (const Case& c : cases) {
    for (const Encoding encoding : {Encoding::kGbk, Encoding::kUtf8}) {
      InitialsOptions options = c.options;
      options.encoding = encoding;
      EXPECT_EQ(Initials(kLines, options).lines, c.lines);
    }
  }
}

TEST(PinyinInitials, ListWhatIsDoubtful) {
  EXPECT_EQ(Initials(u"重庆\n他长\n單", {}).doubtful, u"2\t2\t长\tC\tZ\n3\t1\t單\tD\tCS\n");
  EXPECT_EQ(Initials(u"單", {.small = true, .readAs = ReadAs::kName}).doubtful, u"");
  // A character that is not known passes.
  EXPECT_EQ(Initials(u"\U00020BB7a兙", {.place = InitialsPlace::kOnly}).lines, u"\U00020BB7a兙\r\n");
}

// Bytes of GBK are read as they stand while nothing is listed; listing decodes them.
TEST(PinyinInitials, AreTheSameWhetherDoubtfulOnesAreListedOrNot) {
  constexpr std::u16string_view kPieces[] = {u"重庆", u"重",   u"长",         u"长春", u"不",   u"了",     u"一行",
                                             u"行长", u"单于", u"a",          u"9",    u" ",    u"，",     u"Ａ",
                                             u"あ",   u"€",    u"\U00020BB7", u"兙",   u"\r\n", u"\xDC81", u"\uE000"};
  std::minstd_rand random(3);
  for (int round = 0; round < 2000; ++round) {
    std::u16string text;
    for (int i = 0; i < 12; ++i) {
      text += kPieces[random() % std::size(kPieces)];
    }
    // A character may end in the middle.
    std::string bytes = Encode(Encoding::kGbk, text);
    if (!bytes.empty() && random() % 2 == 0) {
      bytes.pop_back();
    }
    std::vector<DoubtfulCharacter> doubtful;
    ASSERT_EQ(AddedInitials(bytes, {}, nullptr), AddedInitials(bytes, {}, &doubtful)) << round;
  }
}

struct ScriptedInitialsView final : public InitialsView {
  InitialsPlace Place() const override { return InitialsPlace::kBefore; }
  bool IsFirstOnly() const override { return false; }
  bool IsSmall() const override { return false; }
  bool AreNames() const override { return false; }
  bool IsDoubtfulListed() const override { return listed; }
  void CloseView() override { closed = true; }

  bool listed = false;
  bool closed = false;
};

TEST(InitialsDialog, PutsTheResultInThePlaceOfTheSelection) {
  ScriptedWorkbench workbench;
  workbench.editor().Open(u"一\r\n长\r\n二", {{3}, 1});
  ScriptedInitialsView view;
  view.listed = true;
  InitialsDialog(workbench, CaptureInput(workbench)).Start(view);
  EXPECT_TRUE(view.closed);
  EXPECT_EQ(workbench.editor().Text(),
            u"一\r\nC 长\r\n\r\n以下多音字请核对（行、字、汉字、已取字母、其他字母）：\r\n1\t1\t长\tC\tZ\r\n二");
  EXPECT_EQ(workbench.editor().changes, 1);
  EXPECT_EQ(Decode(Encoding::kGbk, workbench.WorkFile("JiaZiMuOK.txt")).substr(0, 5), u"C 长\r\n");
  EXPECT_EQ(workbench.worksAlive, 0);
}

}  // namespace
}  // namespace scrivanta::testing
