// The small rules behind the main window: layout, placement, instance numbers, command line, texts of keys and font.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "shell/window/Capitals.h"
#include "shell/window/CommandLine.h"
#include "shell/window/InstanceNumber.h"
#include "shell/window/MainLayout.h"
#include "shell/window/WindowPlacement.h"
#include "shell/workbench/FontLine.h"
#include "support/ScriptedWorkbench.h"
#include "text/DateTimeText.h"
#include "text/Twips.h"

namespace scrivanta {
namespace {

using testing::MapSettings;

TEST(MainLayoutTest, ControlsFillTheWindowButForTheStatusBar) {
  const auto layout = LayOutMainWindow(11745, 8100);
  ASSERT_TRUE(layout);
  EXPECT_EQ(layout->editBox, (TwipRect{-20, 50, 11768, 7735}));
  EXPECT_EQ(layout->progressBar, (TwipRect{45, 4050, 11245, 300}));
  EXPECT_FALSE(LayOutMainWindow(11745, 364));
  EXPECT_FALSE(LayOutMainWindow(499, 8100));
}

TEST(MainLayoutTest, TwipsAreRoundedToTheNearerPixel) {
  EXPECT_EQ(TwipsToPixels(-20, 96), -1);
  EXPECT_EQ(TwipsToPixels(50, 96), 3);
  EXPECT_EQ(TwipsToPixels(50, 192), 7);
  EXPECT_EQ(PixelsToTwips(791, 96), 11865);
}

TEST(WindowPlacementTest, ValuesWithoutSenseAreTheDefaults) {
  struct Case {
    std::u16string left, top, width, height;
    TwipRect expected;
  };
  const std::vector<Case> cases = {
      {u"150", u"-300", u"9000", u"6000", {150, -300, 9000, 6000}},
      {u" 150.4 ", u"1e3", u"9000", u"6000", {150, 1000, 9000, 6000}},
      {u"", u"abc", u"9000x", u"十", kDefaultPlacement},
      {u"nan", u"inf", u"0", u"-5", kDefaultPlacement},
      {u"99999999999", u"-99999999999", u"1e300", u"10", kDefaultPlacement},
  };
  for (const Case& c : cases) {
    MapSettings settings;
    settings.Save(u"MainLeft", c.left, Store::kRegistry, kWindowSection);
    settings.Save(u"MainTop", c.top, Store::kRegistry, kWindowSection);
    settings.Save(u"MainWidth", c.width, Store::kRegistry, kWindowSection);
    settings.Save(u"MainHeight", c.height, Store::kRegistry, kWindowSection);
    EXPECT_EQ(ReadPlacement(settings), c.expected);
  }
  EXPECT_EQ(ReadPlacement(MapSettings()), kDefaultPlacement);
}

TEST(WindowPlacementTest, WhatIsSavedIsRead) {
  MapSettings settings;
  const TwipRect placement = {-1200, 345, 9015, 6000};
  SavePlacement(settings, placement);
  EXPECT_EQ(ReadPlacement(settings), placement);

  EXPECT_EQ(ReadPlacementBeforeMaximising(settings), std::nullopt);
  const TwipRect normal = {-30, 45, 9000, 6000};
  SavePlacementBeforeMaximising(settings, normal);
  EXPECT_EQ(ReadPlacementBeforeMaximising(settings), normal);
  EXPECT_EQ(ReadPlacement(settings), placement);
  SavePlacementBeforeMaximising(settings, std::nullopt);
  EXPECT_EQ(ReadPlacementBeforeMaximising(settings), std::nullopt);
}

TEST(WindowPlacementTest, AWindowOfAScreenThatIsGoneOpensOnTheMainOne) {
  const std::vector<TwipRect> screens = {{0, 450, 28800, 16000}, {28800, 0, 20000, 16000}};
  struct Case {
    TwipRect saved;
    bool stays;
  };
  const std::vector<Case> cases = {
      {{100, 500, 9000, 6000}, true},       // on the main screen
      {{30000, 0, 9000, 6000}, true},       // on the other one
      {{-8000, 500, 9000, 6000}, true},     // enough of the caption is left to take hold of
      {{-8500, 500, 9000, 6000}, false},    // too little of it
      {{100, 0, 9000, 6000}, false},        // the caption lies under a bar at the top
      {{100, 16300, 9000, 6000}, false},    // below the screen
      {{-30000, 500, 9000, 6000}, false},   // on a screen that is gone
      {{60000, 60000, 9000, 6000}, false},  // on another one
  };
  for (const Case& c : cases) {
    const TwipRect moved = {0, 450, c.saved.width, c.saved.height};
    EXPECT_EQ(FitPlacement(c.saved, screens), c.stays ? c.saved : moved) << c.saved.left << ' ' << c.saved.top;
  }
}

TEST(InstanceNumberTest, IsOneMoreThanTheLargest) {
  const auto caption = [](const std::vector<std::u16string>& titles) { return NumberedCaption(u"Scrivanta", titles); };
  EXPECT_EQ(caption({}), u"Scrivanta.1");
  EXPECT_EQ(caption({u"Scrivanta.1", u"另一个窗口", u"Scrivanta.3"}), u"Scrivanta.4");
  EXPECT_EQ(caption({u"Scrivanta.9", u"Scrivanta.10"}), u"Scrivanta.11");
  EXPECT_EQ(caption({u"Scrivanta C:\\a.txt", u"scrivanta.7", u"Scrivanta.txt - 7", u"Scrivanta."}), u"Scrivanta.1");
}

TEST(CommandLineTest, QuotesAreTakenOff) {
  EXPECT_EQ(DocumentOf(u"\"C:\\a b\\x.txt\"").path, u"C:\\a b\\x.txt");
  EXPECT_EQ(DocumentOf(u"\"C:\\a b\\x.txt\" \t").path, u"C:\\a b\\x.txt");
  EXPECT_EQ(DocumentOf(u"C:\\a b\\x.txt ").path, u"C:\\a b\\x.txt ");
  EXPECT_EQ(DocumentOf(u"C:\\a b\\x.txt").path, u"C:\\a b\\x.txt");
  EXPECT_EQ(DocumentOf(u"\"").path, u"\"");
  EXPECT_EQ(DocumentOf(u"\"x").path, u"\"x");
  EXPECT_EQ(DocumentOf(u"").path, u"");
  EXPECT_EQ(DocumentOf(u"\"C:\\a b.txt\" /line:12 ").path, u"C:\\a b.txt");
  EXPECT_EQ(DocumentOf(u"\"C:\\a b.txt\" /line:12").line, 12);
  EXPECT_EQ(DocumentOf(u"\"C:\\a b.txt\"").line, 0);
}

TEST(DateTimeTextTest, PadsWithZeros) {
  using namespace std::chrono_literals;
  const auto now = std::chrono::local_days{std::chrono::year{2026} / 3 / 9} + 8h + 5min + 9s + 999ms;
  EXPECT_EQ(DateText(now), u"2026-03-09");
  EXPECT_EQ(TimeText(now), u"08:05:09");
}

TEST(CapitalsTest, OneUnitForOne) {
  EXPECT_EQ(ToCapitals(u"aZ9 汉字{}"), u"AZ9 汉字{}");
  EXPECT_EQ(ToCapitals(u"ａｚＡ"), u"ＡＺＡ");
  EXPECT_EQ(ToCapitals(u"āáǎàü ÿ÷"), u"ĀÁǍÀÜ Ÿ÷");
  EXPECT_EQ(ToCapitals(u"αςωЖяё ⅰⅹ"), u"ΑΣΩЖЯЁ ⅠⅩ");
  EXPECT_EQ(ToCapitals(u"Āā ß ﬁ 😀"), u"ĀĀ ß ﬁ 😀");
}

TEST(FontLineTest, ShowsEveryFieldWithItsLabel) {
  const FontDescription font = {.name = u"宋体", .size = 10.5, .colour = 255, .bold = true};
  const std::u16string line = u"字体：宋体|字号：10.5|颜色：255|粗体：True|斜体：False|下划线：False|删除线：False";
  EXPECT_EQ(FontToLine(font), line);
  EXPECT_EQ(ApplyFontLine({}, line), font);
}

TEST(FontLineTest, KeepsWhatTheLineDoesNotSay) {
  const FontDescription font = {.name = u"宋体", .size = 10.5, .colour = 255, .italic = true};
  struct Case {
    std::u16string line;
    FontDescription expected;
  };
  FontDescription larger = font;
  larger.size = 12;
  FontDescription kaiti = font;
  kaiti.name = u"楷体";
  kaiti.italic = false;
  const std::vector<Case> cases = {
      {u"", font},
      {u"字号：12", larger},
      {u"斜体：False| 字体：楷体 ", kaiti},
      {u"楷体|10.5|255|False|否", kaiti},
      {u"字体：|字号：0|颜色：红|粗体：也许|斜体：", font},
      {u"字号：5000|颜色：99999999|颜色：-1", font},
      {u"||||||||||", font},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(FontToLine(ApplyFontLine(font, c.line)), FontToLine(c.expected));
  }
}

}  // namespace
}  // namespace scrivanta
