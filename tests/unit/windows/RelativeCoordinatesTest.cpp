#include <gtest/gtest.h>

#include "text/Bytes.h"
#include "windows/RelativeCoordinates.h"

namespace scrivanta::testing {
namespace {

struct Converted {
  std::string text;
  CoordinateReport report;
};

Converted Convert(std::string_view script, ScriptDialect dialect, CoordinateOrigin origin) {
  MemorySource source(script);
  NoProgress progress;
  LineReader in(source, LineEnds::kCrLfOrLf, progress);
  StringSink sink;
  LineWriter out(sink);
  Converted converted;
  converted.report =
      MakeCoordinatesRelative(in, out, {.dialect = dialect, .origin = std::move(origin), .encoding = Encoding::kUtf8});
  out.Flush();
  converted.text = sink.bytes();
  return converted;
}

constexpr ScreenPoint kOrigin{100, 200};

TEST(RelativeCoordinates, SubtractThePointInEachFamily) {
  const std::tuple<ScriptDialect, std::string_view, std::string_view> cases[] = {
      {ScriptDialect::kAutoIt, "  mouseclick( \"left\" , 110,  -20, 2, 0) ; MouseMove(1, 2)",
       "  mouseclick( \"left\" , 10,  -220, 2, 0) ; MouseMove(1, 2)"},
      {ScriptDialect::kAutoIt, "If PixelGetColor(110, 220) = 0 Then MouseMove(100,200)",
       "If PixelGetColor(10, 20) = 0 Then MouseMove(0,0)"},
      {ScriptDialect::kAutoIt, "MouseClickDrag(\"left\", 110, 220, 130, 240)",
       "MouseClickDrag(\"left\", 10, 20, 30, 40)"},
      {ScriptDialect::kAutoIt, "ConsoleWrite(\"MouseMove(1, 2)\") $MouseMove(1, 2)",
       "ConsoleWrite(\"MouseMove(1, 2)\") $MouseMove(1, 2)"},
      {ScriptDialect::kAutoIt, "MouseClick(\"left\")", "MouseClick(\"left\")"},
      {ScriptDialect::kAhk1, "F1::Click, 110, 220 ; Click, 1, 2", "F1::Click, 10, 20 ; Click, 1, 2"},
      {ScriptDialect::kAhk1, "click right 110 220 2", "click right 10 20 2"},
      {ScriptDialect::kAhk1, "Click 2", "Click 2"},
      {ScriptDialect::kAhk1, "MouseMove, 5, 6, 0, R", "MouseMove, 5, 6, 0, R"},
      {ScriptDialect::kAhk1, "PixelGetColor, c, 110, 220", "PixelGetColor, c, 10, 20"},
      {ScriptDialect::kAhk2, "if (x) { Click \"110 220\" }", "if (x) { Click \"10 20\" }"},
      {ScriptDialect::kAhk2, "MouseMove(110, 220, 0)", "MouseMove(10, 20, 0)"},
      {ScriptDialect::kAhk2, "/* Click 1, 2", "/* Click 1, 2"},
      {ScriptDialect::kQ, "MoveTo 110, 220: LeftClick 1 // MoveTo 1, 2", "MoveTo 10, 20: LeftClick 1 // MoveTo 1, 2"},
      {ScriptDialect::kQ, "IfColor 110,220,\"0000FF\",0 ' 中", "IfColor 10,20,\"0000FF\",0 ' 中"},
      {ScriptDialect::kQ, "Rem MoveTo 1, 2", "Rem MoveTo 1, 2"},
      {ScriptDialect::kPairs, "110,220", "10,20"},
      {ScriptDialect::kPairs, "(110 , -220); 300，400", "(10 , -420); 200，200"},
      {ScriptDialect::kPairs, "110\t220", "10\t20"},
      {ScriptDialect::kPairs, "点3 共5个，1.5,2.5", "点3 共5个，1.5,2.5"},
  };
  for (const auto& [dialect, line, expected] : cases) {
    const Converted converted = Convert(line, dialect, kOrigin);
    EXPECT_EQ(converted.text, std::string(expected) + "\r\n");
    EXPECT_TRUE(converted.report.left.empty()) << line;
  }
}

TEST(RelativeCoordinates, LeaveAndReportWhatTheyCannotKnow) {
  const std::tuple<ScriptDialect, std::string_view, std::u16string_view> cases[] = {
      {ScriptDialect::kAutoIt, "MouseMove($x + 30, 40)", u"MouseMove($x + 30, 40"},
      {ScriptDialect::kAutoIt, "MouseMove(Max(1, 2), 40)", u"MouseMove(Max(1, 2), 40"},
      {ScriptDialect::kAutoIt, "$a = PixelSearch(1, 2, 3, 4, 5)", u"PixelSearch(1, 2, 3, 4, 5"},
      {ScriptDialect::kAhk1, "Click, %x%, 20", u"Click, %x%, 20"},
      {ScriptDialect::kQ, "FindPic 0,0,1024,768,\"a.bmp\",0.9,x,y", u"FindPic 0,0,1024,768,\"a.bmp\",0.9,x,y"},
      {ScriptDialect::kQ, "MoveTo x + 5, 10", u"MoveTo x + 5, 10"},
      {ScriptDialect::kPairs, "1,2,3", u"1,2,3"},
  };
  for (const auto& [dialect, line, expected] : cases) {
    const Converted converted = Convert("\n" + std::string(line), dialect, kOrigin);
    EXPECT_EQ(converted.text, "\r\n" + std::string(line) + "\r\n");
    ASSERT_EQ(converted.report.left.size(), 1U) << line;
    EXPECT_EQ(converted.report.left[0].line, 2U);
    EXPECT_EQ(converted.report.left[0].text, expected);
  }
}

TEST(RelativeCoordinates, CountFromTheFirstPointAndThePointBefore) {
  EXPECT_EQ(Convert("MoveTo a, 1\r\nMoveTo 10, 20\r\nIfColor 11,22,\"0\",0", ScriptDialect::kQ, FromFirstPoint()).text,
            "MoveTo a, 1\r\nMoveTo 0, 0\r\nIfColor 1,2,\"0\",0\r\n");
  const std::tuple<ScriptDialect, std::string_view, std::string_view, std::size_t> cases[] = {
      {ScriptDialect::kQ, "MoveTo 10, 20\nMoveTo 15, 10\nMoveR 1, 1\nIfColor 1,2,\"\",0",
       "MoveTo 10, 20\r\nMoveR 5, -10\r\nMoveR 1, 1\r\nIfColor 1,2,\"\",0\r\n", 1},
      {ScriptDialect::kAutoIt, "MouseMove(10, 20)\nMouseClick(\"left\", 5, 25)",
       "MouseMove(10, 20)\r\nMouseClick(\"left\", MouseGetPos(0) - 5, MouseGetPos(1) + 5)\r\n", 0},
      {ScriptDialect::kAhk1, "Click, 10, 20\nMouseMove, 15, 25\nMouseMove, 1, 1, 0, R\nClick, 17, 27",
       "Click, 10, 20\r\nMouseMove, 5, 5, , R\r\nMouseMove, 1, 1, 0, R\r\nClick, 1, 1, Rel\r\n", 0},
      {ScriptDialect::kAhk2, "Click 10, 20\nClick \"15 25\"\nMouseClickDrag(\"L\", 20, 30, 25, 40)",
       "Click 10, 20\r\nClick \"5 5 Rel\"\r\nMouseClickDrag(\"L\", 5, 5, 5, 10, , \"R\")\r\n", 0},
      // Where the mouse is after an expression is not known: the next point stays, and those behind it count from it.
      {ScriptDialect::kQ, "MoveTo 1, 1\nMoveTo x, y\nMoveTo 10, 20\nMoveTo 11, 21",
       "MoveTo 1, 1\r\nMoveTo x, y\r\nMoveTo 10, 20\r\nMoveR 1, 1\r\n", 2},
      {ScriptDialect::kPairs, "10,20\n15,10\n15,11", "10,20\r\n5,-10\r\n0,1\r\n", 0},
  };
  for (const auto& [dialect, script, expected, left] : cases) {
    const Converted converted = Convert(script, dialect, FromPreviousPoint());
    EXPECT_EQ(converted.text, expected);
    EXPECT_EQ(converted.report.left.size(), left) << script;
  }
}

TEST(RelativeCoordinates, FindTheWindowInTheWordsOfTheScript) {
  const FromWindow window{.corner = kOrigin, .caption = u"记\"事;本"};
  EXPECT_EQ(Convert("MouseMove(101, 202)", ScriptDialect::kAutoIt, window).text,
            "WinActivate(\"记\"\"事;本\")\r\nWinWaitActive(\"记\"\"事;本\")\r\nOpt(\"MouseCoordMode\", 2)\r\n"
            "Opt(\"PixelCoordMode\", 2)\r\nMouseMove(1, 2)\r\n");
  EXPECT_EQ(Convert("Click, 101, 202", ScriptDialect::kAhk1, window).text,
            "WinActivate, 记\"事`;本\r\nWinWaitActive, 记\"事`;本\r\nCoordMode, Mouse, Client\r\n"
            "CoordMode, Pixel, Client\r\nClick, 1, 2\r\n");
  const std::string prologue =
      "ChuangKou = Plugin.Window.Find(0, \"记\"\"事;本\")\r\n"
      "ChuangKouQu = Split(Plugin.Window.GetClientRect(ChuangKou), \"|\")\r\n"
      "ChuangKouX = CLng(ChuangKouQu(0))\r\nChuangKouY = CLng(ChuangKouQu(1))\r\n";
  const std::string moved = "MoveTo ChuangKouX + 1, ChuangKouY - 1\r\n";
  EXPECT_EQ(Convert("[General]\n[Script]\nMoveTo 101, 199", ScriptDialect::kQ, window).text,
            "[General]\r\n[Script]\r\n" + prologue + moved);
  EXPECT_EQ(Convert("MoveTo 101, 199", ScriptDialect::kQ, window).text, prologue + moved);
}

TEST(RelativeCoordinates, TellTheFamilyByItsCommands) {
  const std::pair<std::string_view, ScriptDialect> cases[] = {
      {"; Click, 1, 2\nMouseClick(\"left\", 1, 2)\nMouseMove(1, 2)", ScriptDialect::kAutoIt},
      {"Click, 1, 2\nMouseMove, 3, 4", ScriptDialect::kAhk1},
      {"Click 1, 2\nMouseMove 3, 4", ScriptDialect::kAhk2},
      {"#Requires v2\nMouseMove(3, 4)", ScriptDialect::kAhk2},
      {"[Script]\nmoveto 1,2\nLeftClick 1", ScriptDialect::kQ},
      {"1,2\n3,4", ScriptDialect::kPairs},
      {"", ScriptDialect::kPairs}};
  for (const auto& [script, expected] : cases) {
    MemorySource source(script);
    NoProgress progress;
    LineReader lines(source, LineEnds::kCrLfOrLf, progress);
    EXPECT_EQ(DialectOf(lines, Encoding::kGbk), expected) << script;
  }
}

}  // namespace
}  // namespace scrivanta::testing
