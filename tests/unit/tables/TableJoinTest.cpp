#include <algorithm>
#include <optional>
#include <random>

#include <gtest/gtest.h>

#include "tables/TableJoin.h"

namespace scrivanta {
namespace {

using Rows = std::vector<std::vector<std::string>>;

struct Joined {
  std::string rows;
  std::string onlyFirst;
  std::string onlySecond;

  bool operator==(const Joined&) const = default;
};

std::string TextOf(const std::vector<std::string>& row) {
  std::string text;
  for (const std::string& field : row) {
    text += (text.empty() ? "" : "\t") + field;
  }
  return text + "\r\n";
}

std::string TextOf(const Rows& rows) {
  std::string text;
  for (const auto& row : rows) {
    text += TextOf(row);
  }
  return text;
}

// Rows of a key, from a few, and a number of their own.
Rows RandomRows(std::mt19937& random, std::size_t count, unsigned keys, const std::string& name) {
  Rows rows;
  for (std::size_t i = 0; i < count; ++i) {
    rows.push_back({"k" + std::to_string(random() % keys), name + std::to_string(i)});
  }
  return rows;
}

// By looking at every pair.
Joined PlainJoin(const Rows& first, const Rows& second, JoinKind kind) {
  Joined joined;
  for (const auto& row : first) {
    bool isAlone = true;
    for (const auto& partner : second) {
      if (partner[0] == row[0]) {
        isAlone = false;
        joined.rows += TextOf(std::vector{row[0], row[1], partner[1]});
      }
    }
    if (isAlone) {
      joined.onlyFirst += TextOf(row);
      joined.rows += kind == JoinKind::kLeft || kind == JoinKind::kFull ? TextOf(std::vector{row[0], row[1], {}}) : "";
    }
  }
  for (const auto& row : second) {
    if (std::ranges::none_of(first, [&row](const auto& partner) { return partner[0] == row[0]; })) {
      joined.onlySecond += TextOf(row);
      joined.rows += kind == JoinKind::kRight || kind == JoinKind::kFull ? TextOf(std::vector{row[0], {}, row[1]}) : "";
    }
  }
  return joined;
}

Joined Join(const std::string& first, const std::string& second, const JoinOptions& options) {
  NoProgress progress;
  std::optional<MemorySource> sources[2];
  StringSink sinks[3];
  LineWriter writers[3] = {LineWriter(sinks[0]), LineWriter(sinks[1]), LineWriter(sinks[2])};
  JoinTables([&] { return RecordReader(sources[0].emplace(first), options.format, progress); },
             [&] { return RecordReader(sources[1].emplace(second), options.secondFormat, progress); }, options,
             {writers[0], &writers[1], &writers[2]}, progress);
  for (LineWriter& writer : writers) {
    writer.Flush();
  }
  return {sinks[0].bytes(), sinks[1].bytes(), sinks[2].bytes()};
}

// The larger table is streamed, whichever it is, and its partners are held in lots.
TEST(TableJoinTest, JoinsTablesOfAnySizesLikeAPlainComparison) {
  std::mt19937 random(1);  // the same numbers in every run
  for (const auto& [firstRows, secondRows] :
       {std::pair(40U, 40U), {90U, 7U}, {7U, 90U}, {30U, 90U}, {80U, 200U}, {1U, 9U}, {9U, 1U}}) {
    const Rows first = RandomRows(random, firstRows, 30, "a");
    const Rows second = RandomRows(random, secondRows, 30, "b");
    for (const JoinKind kind : {JoinKind::kInner, JoinKind::kLeft, JoinKind::kRight, JoinKind::kFull}) {
      for (const std::size_t heldBytes : {std::size_t{0}, std::size_t{60}, std::size_t{300}, std::size_t{1} << 20U}) {
        const JoinOptions options{
            .kind = kind, .key = u"1", .columns = u"1,2", .secondColumns = u"2", .heldBytes = heldBytes};
        const Joined wanted = PlainJoin(first, second, kind);
        EXPECT_EQ(Join(TextOf(first), TextOf(second), options), wanted)
            << firstRows << " with " << secondRows << ", " << static_cast<int>(kind) << ", " << heldBytes;
      }
    }
  }
}

}  // namespace
}  // namespace scrivanta
