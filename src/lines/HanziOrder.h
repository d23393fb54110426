// Lines in the order of a Chinese dictionary: by the readings of their characters, or by strokes.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "hanzi/Hanzi.h"
#include "lines/LineStore.h"
#include "lines/duplicates/KeyedLine.h"
#include "text/Encoding.h"
#include "text/Progress.h"

namespace scrivanta {

enum class HanziOrderBy {
  kPinyin,   // by syllable and tone as phrases have them, of the same reading by strokes, then by code
  kStrokes,  // by their number, then by code
};

// Character by character; what is no Chinese character stands before all that are, in the order of the codes, and
// Chinese characters of which the order knows nothing behind them. Needs four bytes a character.
class HanziOrder {
 public:
  HanziOrder(const LineStore& lines, Encoding encoding, HanziOrderBy by, Progress& progress)
      : lines_(lines), encoding_(encoding), by_(by), progress_(progress) {}

  // Lines that follow each other in the store. Lines that are alike keep their order. Throws Interrupted.
  void Sort(std::span<KeyedLine> lines);

 private:
  using Rank = std::uint32_t;  // of a character, from 1
  // Lines that have their first `depth` ranks in common.
  struct Group {
    std::span<KeyedLine> lines;
    std::size_t depth = 0;
  };

  void RankLines(std::span<const KeyedLine> lines);
  void RankLine(std::string_view line);
  std::uint64_t KeyOf(std::size_t index, std::size_t depth) const;

  const LineStore& lines_;
  Encoding encoding_;
  HanziOrderBy by_;
  Progress& progress_;
  std::u16string text_;
  std::size_t firstIndex_ = 0;
  std::vector<Reading> readings_;
  std::vector<Rank> ranks_;          // of all lines, each ended by a 0
  std::vector<std::size_t> begins_;  // in ranks_, by index from firstIndex_
};

}  // namespace scrivanta
