#include <algorithm>
#include <array>

#include <gtest/gtest.h>

#include "search/RegularTest.h"
#include "search/SyntaxReference.h"
#include "support/ScriptedWorkbench.h"

namespace scrivanta {
namespace {

class ScriptedView final : public RegularTestView {
 public:
  std::u16string PatternBox() const override { return pattern; }
  void SetPatternBox(const std::u16string& text, const std::vector<std::u16string>& items) override {
    pattern = text;
    list = items;
  }
  DialogPlace Place() const override { return {}; }
  void SetPlace(const DialogPlace&) override {}

  std::u16string pattern;
  std::vector<std::u16string> list;
};

class RegularTestTest : public ::testing::Test {
 protected:
  std::u16string Kept(std::u16string_view key) {
    return workbench.settings().Get(key, Store::kIniFile, u"HistoryRegularPattern");
  }

  testing::ScriptedWorkbench workbench;
  RegularTest dialog{workbench};
  ScriptedView view;
};

TEST_F(RegularTestTest, ColoursEveryMatchAndTellsTheirNumber) {
  workbench.editor().Open(u"a1\r\nA22aa");
  dialog.Open(view);
  view.pattern = u"^a|a";
  dialog.Test(view);
  const TextColours redOnYellow{.text = 0x0000FF, .background = 0x00FFFF};
  using Coloured = std::vector<std::pair<TextRange, TextColours>>;
  EXPECT_EQ(
      workbench.editor().coloured,
      (Coloured{{{{0}, 1}, redOnYellow}, {{{4}, 1}, redOnYellow}, {{{7}, 2}, redOnYellow}, {{{8}, 1}, redOnYellow}}));
  EXPECT_EQ(workbench.prompts().messages.back().text, u"发现 4 次。");
  EXPECT_EQ(workbench.editor().Selection(), (TextRange{{8}, 1}));
  // The next test takes the colours away first.
  workbench.editor().coloured.clear();
  view.pattern = u"x";
  dialog.Test(view);
  EXPECT_EQ(workbench.editor().coloured, (Coloured{{{{0}, 1}, {}}, {{{4}, 1}, {}}, {{{7}, 2}, {}}}));
  EXPECT_EQ(workbench.prompts().messages.back().text, u"发现 0 次。");
}

TEST_F(RegularTestTest, NoColourStaysAfterATestThatWasInterrupted) {
  std::u16string text;
  for (int i = 0; i < 250; ++i) {
    text += u"ab";
  }
  workbench.editor().Open(text);
  dialog.Open(view);
  int interrupted = 0;
  for (std::uint64_t report = 1; report < 10; ++report) {
    view.pattern = u"a";
    dialog.Test(view);
    view.pattern = u"b";
    workbench.interruptAfter = workbench.reports + report;
    try {
      dialog.Test(view);
    } catch (const Interrupted&) {
      ++interrupted;
    }
    view.pattern = u"x";
    workbench.interruptAfter = 0;
    dialog.Test(view);
    std::array<bool, 500> isColoured{};
    for (const auto& [range, colours] : workbench.editor().coloured) {
      std::fill_n(isColoured.begin() + static_cast<std::ptrdiff_t>(range.start.value), range.length,
                  colours.text.has_value());
    }
    EXPECT_EQ(std::ranges::count(isColoured, true), 0) << report;
  }
  EXPECT_GT(interrupted, 4);
}

TEST_F(RegularTestTest, KeepsItsHistoryUnderKeysOfFiveDigits) {
  workbench.settings().Save(u"00001", u"b", Store::kIniFile, u"HistoryRegularPattern");
  dialog.Open(view);
  EXPECT_EQ(view.list.front(), u"b");
  EXPECT_EQ(view.list.size(), 6U);
  EXPECT_EQ(view.list.back(), u"^.*?$");
  view.pattern = u"new";
  dialog.Test(view);
  EXPECT_EQ(Kept(u"00000"), u"b");
  EXPECT_EQ(Kept(u"00001"), u"'功能：[\\W\\w]+?(^Public Function |^Public Sub ).*?$");
  EXPECT_EQ(Kept(u"00006"), u"new");
  // An empty pattern is not tested.
  const std::size_t messages = workbench.prompts().messages.size();
  view.pattern = u"";
  dialog.Test(view);
  EXPECT_EQ(workbench.prompts().messages.size(), messages);
  workbench.prompts().Will(std::u16string(u"ne"));
  dialog.FilterHistory(view);
  EXPECT_EQ(view.list.front(), u"new");
  dialog.Reload(view);
  EXPECT_EQ(view.list.front(), u"b");
  EXPECT_EQ(view.list.size(), 7U);
}

TEST_F(RegularTestTest, TakesAHistoryWithGapsAndEmptiesWhatStandsBehindIt) {
  const auto put = [this](std::u16string_view key, std::u16string_view item) {
    workbench.settings().Save(key, item, Store::kIniFile, u"HistoryRegularPattern");
  };
  put(u"00003", u"late");
  put(u"00001", u"early");
  put(u"00900", u"far");
  put(u"Remark", u"by hand");
  dialog.Reload(view);
  EXPECT_EQ(view.list, (std::vector<std::u16string>{u"early", u"late", u"far"}));
  view.pattern = u"early";
  dialog.Test(view);
  EXPECT_EQ(Kept(u"00000"), u"early");
  EXPECT_EQ(Kept(u"00002"), u"far");
  EXPECT_EQ(Kept(u"00003"), u"");
  EXPECT_EQ(Kept(u"00900"), u"");
  EXPECT_EQ(Kept(u"Remark"), u"by hand");
  dialog.Reload(view);
  EXPECT_EQ(view.list.size(), 3U);
}

TEST(SyntaxReference, HasARowForEveryConstruct) {
  for (const std::u16string_view row :
       {u".",     u"*",     u"?",   u"+",      u"(表达式)", u"^",       u"\\",   u"\\<",    u"\\>",   u"\\t",
        u"\\v",   u"\\r",   u"\\n", u"\\r\\n", u"[xyz]",    u"[^xyz]",  u"x|y",  u"a(?!b)", u"\\W",   u"\\w",
        u"\\S",   u"\\s",   u"\\f", u"\\D",    u"\\d",      u"\\uxxxx", u"{n}",  u"{n,}",   u"{n,m}", u"{,m}",
        u"\\xdd", u"[\\b]", u"\\b", u"\\B",    u"\\cX",     u"\\/",     u"\\\\", u"\\.",    u"\\*",   u"\\+",
        u"\\?",   u"\\|",   u"\\(", u"\\)",    u"\\[",      u"\\]",     u"\\{",  u"\\}"}) {
    EXPECT_NE((u"\r\n" + std::u16string(kSyntaxReference)).find(u"\r\n" + std::u16string(row) + u"    "),
              std::u16string::npos)
        << std::u16string(row).size();
  }
  EXPECT_NE(kSyntaxReference.find(u"\r\n$    行尾（pld：尽量不用，用\\r\\n代替）\r\n"), std::u16string_view::npos);
}

}  // namespace
}  // namespace scrivanta
