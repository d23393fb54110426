#include "lines/HanziOrder.h"

#include "hanzi/ReadHanzi.h"
#include "lines/PacedProgress.h"
#include "text/CodePoints.h"

namespace scrivanta {

namespace {

constexpr std::uint32_t kHanzi = 0x110001;  // behind all code points
constexpr std::uint32_t kUnread = 0x40000000;
constexpr std::uint32_t kUnknown = 0x50000000;
constexpr unsigned kStrokePlaceBits = 15;
constexpr char32_t kFurtherHanzi = 0x20000;  // where the planes begin that hold nothing else

std::uint32_t RankOfOther(char32_t character) {
  return character < kFurtherHanzi ? character + 1 : kUnknown + character;
}

std::uint32_t RankByReading(char32_t character, Syllable syllable) {
  const std::uint32_t place = HanziData::Get().StrokePlaceOf(character);
  if (syllable != kNoSyllable) {
    return kHanzi + ((std::uint32_t{syllable} << kStrokePlaceBits) | place);
  }
  return place > 0 ? kUnread + place : RankOfOther(character);
}

std::uint32_t RankByStrokes(char32_t character) {
  const std::uint32_t place = HanziData::Get().StrokePlaceOf(character);
  return place > 0 ? kHanzi + place : RankOfOther(character);
}

}  // namespace

void HanziOrder::Sort(std::span<KeyedLine> lines) {
  if (lines.empty()) {
    return;
  }
  RankLines(lines);
  KeySorter sorter(progress_);
  PacedProgress sorting(progress_, 0);
  std::vector<Group> waiting = {{lines, 0}};
  while (!waiting.empty()) {
    const Group group = waiting.back();
    waiting.pop_back();
    for (KeyedLine& line : group.lines) {
      sorting.Step();
      line.key = KeyOf(line.index, group.depth);
    }
    sorter.Sort(group.lines);
    ForEachRun(group.lines, [&](std::span<KeyedLine> run) {
      const bool haveEnded = static_cast<Rank>(run.front().key) == 0;
      if (run.size() > 1 && !haveEnded) {
        waiting.push_back({run, group.depth + 2});
      }
    });
  }
}

void HanziOrder::RankLines(std::span<const KeyedLine> lines) {
  ranks_.clear();
  begins_.clear();
  firstIndex_ = lines.front().index;
  PacedProgress reading(progress_, lines.size());
  for (const KeyedLine& line : lines) {
    reading.Step();
    begins_.push_back(ranks_.size());
    RankLine(lines_[line.index]);
    ranks_.push_back(0);
  }
}

void HanziOrder::RankLine(std::string_view line) {
  text_.clear();
  DecodeAppend(encoding_, line, text_);
  if (by_ == HanziOrderBy::kStrokes) {
    ForEachCodePoint(text_, [&](char32_t character) { ranks_.push_back(RankByStrokes(character)); });
    return;
  }
  ReadHanzi(text_, ReadAs::kText, readings_);
  for (std::size_t at = 0; at < text_.size();) {
    const char32_t character = CodePointAt(text_, at);
    ranks_.push_back(RankByReading(character, readings_[at].syllable()));
    at += UnitsOf(character);
  }
}

// The next two ranks, 0 for what is behind the end.
std::uint64_t HanziOrder::KeyOf(std::size_t index, std::size_t depth) const {
  const std::size_t at = begins_[index - firstIndex_] + depth;
  const std::uint64_t first = ranks_[at];
  return first == 0 ? 0 : (first << 32U) | ranks_[at + 1];
}

}  // namespace scrivanta
