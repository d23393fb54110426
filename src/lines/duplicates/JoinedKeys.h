// The keys of lines, one behind the other, and where their words begin.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace scrivanta {

// A key is a space, the line, and a space. Words are what stands between two spaces that follow each other; between two
// keys there is an empty one.
class JoinedKeys {
 public:
  // The bytes to come, as far as they can be known; memory is made ready for them.
  explicit JoinedKeys(std::size_t expectedBytes) { bytes_.reserve(expectedBytes); }

  // Returns where the line stands in bytes().
  std::size_t Add(std::string_view line);

  // Numbers the words of all keys, for what follows. Throws std::length_error when there are more than a run index can
  // number.
  void NumberWords();

  std::string_view bytes() const noexcept { return bytes_; }
  // Of those that have been numbered.
  std::size_t wordCount() const noexcept { return words_.size(); }
  // Where a word begins in bytes(); words count from 0.
  std::size_t WordBegin(std::size_t word) const { return words_[word]; }
  std::string_view Word(std::size_t word) const {
    const std::size_t end = word + 1 < words_.size() ? words_[word + 1] : numbered_;
    return std::string_view(bytes_).substr(words_[word], end - 1 - words_[word]);
  }
  // Whether the line stands at the place, and is followed by a space.
  bool HasAt(std::size_t place, std::string_view line) const {
    const std::string_view rest = bytes().substr(place);
    return rest.size() > line.size() && rest[line.size()] == ' ' && rest.starts_with(line);
  }

 private:
  std::string bytes_;
  std::vector<std::size_t> words_;
  std::size_t numbered_ = 1;  // behind the space of the last word that has a number
};

}  // namespace scrivanta
