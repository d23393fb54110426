#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "fuzz/RunFuzz.h"
#include "system/FileTimesChange.h"
#include "system/RunLines.h"
#include "text/Bytes.h"
#include "text/Encoding.h"
#include "text/ExplainedError.h"
#include "windows/RelativeCoordinates.h"

namespace scrivanta {
namespace {

std::string Relative(std::string_view script, ScriptDialect dialect, CoordinateOrigin origin) {
  MemorySource source(script);
  NoProgress progress;
  LineReader in(source, LineEnds::kCrLf, progress);
  StringSink sink;
  LineWriter out(sink);
  MakeCoordinatesRelative(in, out, {.dialect = dialect, .origin = std::move(origin), .encoding = Encoding::kGbk});
  out.Flush();
  return sink.bytes();
}

// There and back again is what the script was, its numbers written plainly.
void FuzzScript(std::string_view bytes) {
  for (std::size_t index = 0; index < kDialectNames.size(); ++index) {
    const auto dialect = static_cast<ScriptDialect>(index);
    const std::string plain = Relative(bytes, dialect, ScreenPoint{0, 0});
    const std::string moved = Relative(plain, dialect, ScreenPoint{7, -9});
    EXPECT_EQ(Relative(moved, dialect, ScreenPoint{-7, 9}), plain);
    Relative(bytes, dialect, FromPreviousPoint());
    Relative(bytes, dialect, FromFirstPoint());
  }
}

class NoFiles final : public FileTimesStore {
 public:
  FileTimes Read(const std::filesystem::path&) const override { return {}; }
  void Write(const std::filesystem::path&, const FileTimes&) const override {}
};

void FuzzUndoText(std::string_view bytes) {
  NoProgress progress;
  try {
    FileTimesPlan plan = PlanUndo(bytes, NoFiles(), progress);
    for (FileTimesEntry& entry : plan.entries) {
      entry.old = entry.changed;
    }
    const FileTimesPlan again = PlanUndo(UndoText(plan.entries), NoFiles(), progress);
    ASSERT_EQ(again.entries.size(), plan.entries.size());
    for (std::size_t index = 0; index < again.entries.size(); ++index) {
      EXPECT_EQ(again.entries[index].changed, plan.entries[index].changed);
      EXPECT_EQ(again.entries[index].path, plan.entries[index].path);
    }
  } catch (const ExplainedError&) {
    // What is none of such a text is refused.
  }
}

void FuzzLines(std::string_view bytes) {
  const std::u16string text = Decode(Encoding::kGbk, bytes);
  ParseMoment(text);
  ParseShift(text);
  for (const RunLine& line : ReadRunLines(text, {}, [](std::u16string_view) { return std::nullopt; })) {
    EXPECT_FALSE(line.target.empty());
  }
}

TEST(Fuzz, Script) {
  static constexpr std::string_view kInputs[] = {"MouseClick(\"left\", 10, 20, 1) ; MouseMove(1, 2)",
                                                 "Click, 10, 20\r\n/* Click 1 2\r\n*/ Click \"Right 1 2 Rel\"",
                                                 "[Script]\r\nMoveTo 10, 20: MoveTo x, 1 // \xB0\xB4\xC5\xA5",
                                                 "(10 , -20); 30,40\r\n1\t2"};
  static constexpr std::string_view kTokens[] = {"MouseMove", "Click", "MoveTo", "(", ")", ",",    "\"",
                                                 "'",         "//",    ";",      " ", "-", "\r\n", "12",
                                                 "#cs",       "/*",    "*/",     "R", ":", "%"};
  RunFuzz(FuzzScript, kInputs, kTokens);
}

TEST(Fuzz, UndoText) {
  static constexpr std::string_view kInputs[] = {
      "Scrivanta file times: created, modified, accessed (UTC), "
      "path\r\n2020-01-02T03:04:05.1234567Z\t-\t-\t/a%0Ab%25\r\n"};
  static constexpr std::string_view kTokens[] = {"\t", "-", "%", "Z", "T", "\r\n", "9", "\xE4\xB8\xAD"};
  RunFuzz(FuzzUndoText, kInputs, kTokens);
}

TEST(Fuzz, LinesOfTimesAndNames) {
  static constexpr std::string_view kInputs[] = {"2020-01-02 03:04:05.25", "+1d2h -3m",
                                                 "``\"%TEMP%\\a b.txt\"\r\nhttp://a"};
  static constexpr std::string_view kTokens[] = {"%", "\"", "\r\n", ":", "999999w", "-", "+", " ", "/"};
  RunFuzz(FuzzLines, kInputs, kTokens);
}

}  // namespace
}  // namespace scrivanta
