#include "lines/duplicates/JoinedKeys.h"

#include <limits>
#include <stdexcept>

namespace scrivanta {

namespace {

constexpr std::size_t kMostWords = std::numeric_limits<std::uint32_t>::max();

}  // namespace

std::size_t JoinedKeys::Add(std::string_view line) {
  bytes_ += ' ';
  const std::size_t place = bytes_.size();
  bytes_ += line;
  bytes_ += ' ';
  return place;
}

void JoinedKeys::NumberWords() {
  while (numbered_ < bytes_.size()) {
    words_.push_back(numbered_);
    numbered_ = bytes_.find(' ', numbered_) + 1;
  }
  if (words_.size() > kMostWords) {
    throw std::length_error("the lines have too many words");
  }
}

}  // namespace scrivanta
