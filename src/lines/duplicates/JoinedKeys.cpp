#include "lines/duplicates/JoinedKeys.h"

#include <limits>
#include <stdexcept>

namespace scrivanta {

namespace {

constexpr std::size_t kMostWords = std::numeric_limits<std::uint32_t>::max();

}  // namespace

std::size_t JoinedKeys::Add(std::string_view line) {
  if (!bytes_.empty()) {
    words_.push_back(bytes_.size());
  }
  bytes_ += ' ';
  const std::size_t place = bytes_.size();
  words_.push_back(place);
  for (std::size_t space = line.find(' '); space != std::string_view::npos; space = line.find(' ', space + 1)) {
    words_.push_back(place + space + 1);
  }
  bytes_ += line;
  bytes_ += ' ';
  if (words_.size() > kMostWords) {
    throw std::length_error("the lines have too many words");
  }
  return place;
}

}  // namespace scrivanta
