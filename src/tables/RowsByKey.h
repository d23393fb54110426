// The rows of a table by their keys, in the order in which they came.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace scrivanta {

class RowsByKey {
 public:
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;

  // Adds the next row; rows count from 0. Throws std::length_error beyond four thousand million of them.
  void Add(std::string_view key);
  // The key's number, from 0; kNone when no row has it.
  std::uint32_t Find(std::string_view key) const;

  std::uint32_t FirstRow(std::uint32_t key) const { return keys_[key].firstRow; }
  // The next row with the same key, kNone at the last.
  std::uint32_t NextRow(std::uint32_t row) const { return rows_[row].next; }
  std::uint32_t KeyOfRow(std::uint32_t row) const { return rows_[row].key; }
  std::size_t rowCount() const noexcept { return rows_.size(); }
  std::size_t keyCount() const noexcept { return keys_.size(); }

  void Mark(std::uint32_t key) { keys_[key].isMarked = true; }
  bool IsMarked(std::uint32_t key) const { return keys_[key].isMarked; }

 private:
  struct Key {
    std::size_t begin = 0;  // in text_
    std::uint32_t length = 0;
    std::uint32_t hash = 0;
    std::uint32_t firstRow = 0;
    std::uint32_t lastRow = 0;
    bool isMarked = false;
  };
  struct Row {
    std::uint32_t key = 0;
    std::uint32_t next = kNone;
  };

  std::size_t SlotOf(std::string_view key, std::uint32_t hash) const;
  void Grow();

  std::string text_;  // of all keys
  std::vector<Key> keys_;
  std::vector<Row> rows_;
  std::vector<std::uint32_t> slots_;  // numbers of keys; a power of two of them, at most half of them taken
};

}  // namespace scrivanta
