#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "text/LineReader.h"

namespace scrivanta {
namespace {

// Hands out at most so many bytes a call, to cut line ends in two.
class Trickle final : public ByteSource {
 public:
  Trickle(std::string_view bytes, std::size_t most) : source_(bytes), most_(most) {}
  std::size_t Read(std::span<char> buffer) override {
    return source_.Read(buffer.first(std::min(buffer.size(), most_)));
  }

 private:
  MemorySource source_;
  std::size_t most_;
};

std::vector<std::string> LinesOf(std::string_view bytes, LineEnds lineEnds, std::size_t most) {
  Trickle source(bytes, most);
  NoProgress progress;
  LineReader reader(source, lineEnds, progress);
  std::vector<std::string> lines;
  while (reader.Next()) {
    lines.emplace_back(reader.line());
    EXPECT_EQ(reader.number(), lines.size());
  }
  return lines;
}

TEST(LineReader, EndsLinesWhereTheConventionSays) {
  struct Case {
    std::string bytes;
    std::vector<std::string> crLf;
    std::vector<std::string> crLfOrLf;
  };
  const Case cases[] = {
      {"", {}, {}},
      {"\r\n", {""}, {""}},
      {"a", {"a"}, {"a"}},
      {"a\r\nb", {"a", "b"}, {"a", "b"}},
      {"a\r\n\r\nb\r\n", {"a", "", "b"}, {"a", "", "b"}},
      {"a\nb\r\nc", {"a\nb", "c"}, {"a", "b", "c"}},
      {"a\rb\r\r\nc\r", {"a\rb\r", "c\r"}, {"a\rb\r", "c\r"}},
      {std::string("a\0b\r\n\0", 6),
       {std::string("a\0b", 3), std::string("\0", 1)},
       {std::string("a\0b", 3), std::string("\0", 1)}},
  };
  for (const Case& c : cases) {
    for (const std::size_t most : {1U, 2U, 3U, 1000U}) {
      EXPECT_EQ(LinesOf(c.bytes, LineEnds::kCrLf, most), c.crLf) << c.bytes << " by " << most;
      EXPECT_EQ(LinesOf(c.bytes, LineEnds::kCrLfOrLf, most), c.crLfOrLf) << c.bytes << " by " << most;
    }
  }
}

TEST(LineReader, ReadsALineLongerThanItsBlock) {
  const std::string longLine(3'000'000, 'x');
  EXPECT_EQ(LinesOf(longLine + "\r\nend", LineEnds::kCrLf, 70'000), (std::vector<std::string>{longLine, "end"}));
}

}  // namespace
}  // namespace scrivanta
