#include "lines/duplicates/KeyedLine.h"

#include <algorithm>
#include <array>

namespace scrivanta {

namespace {

constexpr std::size_t kFew = 512;          // up to here comparing is faster than counting
constexpr std::size_t kDigits = 8;         // of a key, one byte each
constexpr std::size_t kDigitValues = 256;  // of a digit

using Counts = std::array<std::array<std::size_t, kDigitValues>, kDigits>;

std::size_t Digit(std::uint64_t key, std::size_t place) {
  return static_cast<std::size_t>((key >> (8 * place)) & 0xFFU);
}

Counts CountDigits(std::span<const KeyedLine> lines) {
  Counts counts{};
  for (const KeyedLine& line : lines) {
    for (std::size_t place = 0; place < kDigits; ++place) {
      ++counts[place][Digit(line.key, place)];
    }
  }
  return counts;
}

bool IsInOrder(std::span<const KeyedLine> lines) {
  return std::ranges::is_sorted(lines, {}, &KeyedLine::key);
}

}  // namespace

void KeySorter::Sort(std::span<KeyedLine> lines) {
  if (IsInOrder(lines)) {
    return;
  }
  if (lines.size() <= kFew) {
    std::ranges::sort(lines, {}, [](const KeyedLine& line) { return std::pair(line.key, line.index); });
    return;
  }
  // By the last digit first, each round keeping the order of the one before it.
  const Counts counts = CountDigits(lines);
  scratch_.resize(std::max(scratch_.size(), lines.size()));
  std::span<KeyedLine> from = lines;
  std::span<KeyedLine> to = std::span(scratch_).first(lines.size());
  for (std::size_t place = 0; place < kDigits; ++place) {
    if (counts[place][Digit(from.front().key, place)] == lines.size()) {
      continue;  // the same in all keys
    }
    progress_.Report(0, 0);
    std::array<std::size_t, kDigitValues> next{};
    for (std::size_t value = 1; value < kDigitValues; ++value) {
      next[value] = next[value - 1] + counts[place][value - 1];
    }
    for (const KeyedLine& line : from) {
      to[next[Digit(line.key, place)]++] = line;
    }
    std::swap(from, to);
  }
  if (from.data() != lines.data()) {
    std::ranges::copy(from, lines.begin());
  }
}

}  // namespace scrivanta
