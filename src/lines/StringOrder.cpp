#include "lines/StringOrder.h"

#include <algorithm>

#include "text/Surrogates.h"

namespace scrivanta {

namespace {

constexpr std::size_t kUnitsInKey = 4;
// Four characters take 16 bytes at most, and none is decided by more than four bytes.
constexpr std::size_t kBytesForKey = 20;
constexpr std::size_t kBytesAtOnce =
    256;                           // of longer lines, what they have in common would be compared again and again
constexpr std::size_t kAhead = 8;  // lines that are on their way from memory while others are looked at

char16_t LastUnit(std::uint64_t key) {
  return static_cast<char16_t>(key & 0xFFFFU);
}

std::u16string UnitsOf(std::uint64_t key) {
  return {static_cast<char16_t>(key >> 48U), static_cast<char16_t>(key >> 32U), static_cast<char16_t>(key >> 16U),
          static_cast<char16_t>(key)};
}

}  // namespace

void StringOrder::Sort(std::span<KeyedLine> lines) {
  waiting_.push_back({lines, 0});
  while (!waiting_.empty()) {
    const Group group = waiting_.back();
    waiting_.pop_back();
    SortGroup(group);
  }
}

void StringOrder::SortGroup(Group group) {
  if (group.lines.size() < 2 || AreEqual(group)) {
    return;
  }
  if (group.lines.size() <= 2) {
    SortByComparing(group);
    return;
  }
  for (std::size_t i = 0; i < group.lines.size(); ++i) {
    progress_.Step();
    if (i + kAhead < group.lines.size()) {
      lines_.Prefetch(group.lines[i + kAhead].index);
    }
    KeyedLine& line = group.lines[i];
    line.key = KeyOf(RestOf(line.index, group.depth));
  }
  keySorter_.Sort(group.lines);
  SplitByKey(group);
}

// Leaves the lines with the same key for later, unless they are decided.
void StringOrder::SplitByKey(const Group& group) {
  for (auto begin = group.lines.begin(); begin != group.lines.end();) {
    const std::uint64_t key = begin->key;
    const auto end = std::find_if(begin, group.lines.end(), [key](const KeyedLine& line) { return line.key != key; });
    Group alike{std::span(begin, end), group.depth};
    if (alike.lines.size() > 1) {
      if (LastUnit(key) != 0) {
        alike.depth += BytesOfKey(key);
        waiting_.push_back(alike);
      } else if (!EndAlike(alike)) {
        SortByComparing(alike);
      }
    }
    begin = end;
  }
}

// Repeated lines are many, and bytes are compared faster than they are decoded.
bool StringOrder::AreEqual(const Group& group) const {
  const std::string_view first = RestOf(group.lines.front().index, group.depth);
  return first.size() <= kBytesAtOnce && std::ranges::all_of(group.lines.subspan(1), [&](const KeyedLine& line) {
           return RestOf(line.index, group.depth) == first;
         });
}

// Whether lines whose keys are the same and end in 0 are equal: 0 stands for the end of a line as well as for NUL.
bool StringOrder::EndAlike(const Group& group) {
  const std::string_view first = lines_[group.lines.front().index];
  return EndsWithinKey(first.substr(group.depth)) && std::ranges::all_of(group.lines, [&](const KeyedLine& line) {
           return lines_[line.index].size() == first.size();
         });
}

void StringOrder::SortByComparing(const Group& group) {
  std::ranges::sort(group.lines, [&](const KeyedLine& left, const KeyedLine& right) {
    progress_.Step();
    return Less(left.index, right.index, group.depth);
  });
}

bool StringOrder::Less(std::size_t left, std::size_t right, std::size_t depth) {
  for (;;) {
    const std::string_view leftRest = RestOf(left, depth);
    const std::string_view rightRest = RestOf(right, depth);
    const std::uint64_t leftKey = KeyOf(leftRest);
    const std::uint64_t rightKey = KeyOf(rightRest);
    if (leftKey != rightKey) {
      return leftKey < rightKey;
    }
    if (LastUnit(leftKey) == 0 && (EndsWithinKey(leftRest) || EndsWithinKey(rightRest))) {
      return leftRest.size() < rightRest.size();  // they differ in NULs at most
    }
    depth += BytesOfKey(leftKey);
  }
}

// The first four code units, the first of them highest; 0 for what is missing.
std::uint64_t StringOrder::KeyOf(std::string_view rest) {
  std::uint64_t key = 0;
  if (rest.size() >= kUnitsInKey) {
    unsigned char all = 0;
    for (std::size_t i = 0; i < kUnitsInKey; ++i) {
      const auto byte = static_cast<unsigned char>(rest[i]);
      all |= byte;
      key = (key << 16U) | byte;
    }
    if (all < 0x80) {
      return key;
    }
  }
  DecodeForKey(rest);
  units_.resize(kUnitsInKey);
  for (const char16_t unit : units_) {
    key = (key << 16U) | unit;
  }
  return key;
}

bool StringOrder::EndsWithinKey(std::string_view rest) {
  DecodeForKey(rest);
  return units_.size() < kUnitsInKey;
}

void StringOrder::DecodeForKey(std::string_view rest) {
  units_.clear();
  DecodeAppend(encoding_, rest.substr(0, kBytesForKey), units_);
}

// How many bytes the characters of a key take. The first half of a surrogate pair at its end is left for the next key.
std::size_t StringOrder::BytesOfKey(std::uint64_t key) const {
  std::u16string units = UnitsOf(key);
  if (IsHighSurrogate(units.back())) {
    units.pop_back();
  }
  return Encode(encoding_, units).size();
}

}  // namespace scrivanta
