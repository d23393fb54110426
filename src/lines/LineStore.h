// Lines in memory: their bytes in one piece, and eight bytes more a line.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "text/LineReader.h"

namespace scrivanta {

class LineStore {
 public:
  // Reads all lines that are left. Throws FileError, Interrupted.
  explicit LineStore(LineReader& in);

  std::size_t size() const noexcept { return ends_.size(); }
  // Lines count from 0. Valid as long as the store.
  std::string_view operator[](std::size_t index) const {
    const std::size_t begin = index == 0 ? 0 : ends_[index - 1];
    return std::string_view(bytes_).substr(begin, ends_[index] - begin);
  }

  // Asks for a line that will be needed soon: lines in another order than their own lie all over the memory.
  void Prefetch(std::size_t index) const { __builtin_prefetch(bytes_.data() + (index == 0 ? 0 : ends_[index - 1])); }

 private:
  std::string bytes_;
  std::vector<std::size_t> ends_;
};

}  // namespace scrivanta
