// Whether a line's key occurs anywhere in the joined keys of the lines kept before it.
//
// A key is the line between two spaces, and it is found wherever it stands in the joined keys: inside one of them, or
// across several. Since it begins and ends with a space, the question is whether the words of the line stand somewhere
// in a row. Searching the text for every line would take a time that grows with the square of the file. Here a line
// with a pair of neighbours that is new is new itself; for the others, the places are looked up where the line's rarest
// word stands, or its rarest run of several words where single ones are too frequent, and every place is compared byte
// by byte: the answer is always that of the plain search. Words are numbered and indexed only once a line asks for
// that.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "lines/duplicates/JoinedKeys.h"
#include "lines/duplicates/SeenLines.h"
#include "lines/duplicates/WordPairFilter.h"
#include "lines/duplicates/WordRunIndex.h"

namespace scrivanta {

class KeyIndex {
 public:
  // The bytes of all lines to come, as far as they can be known.
  explicit KeyIndex(std::uint64_t expectedBytes)
      : keys_(static_cast<std::size_t>(expectedBytes)), lines_(expectedBytes), pairs_(std::in_place, expectedBytes) {}

  // Whether the key of the line occurs in the joined keys. When it does not, it is joined to them. Throws
  // std::length_error for more than 2^32 words.
  bool ContainsOrAdd(std::string_view line);

 private:
  void HashWords(std::string_view line);
  std::optional<std::size_t> Find(std::string_view line);
  WordRunIndex& IndexForWords(std::size_t count);

  JoinedKeys keys_;
  SeenLines lines_;
  std::optional<WordPairFilter> pairs_;  // as long as it is of use
  std::size_t asked_ = 0;
  std::size_t falseAlarms_ = 0;
  std::map<std::size_t, WordRunIndex> indices_;  // by the length of their runs
  std::vector<std::uint64_t> wordHashes_;        // of the line in question
};

}  // namespace scrivanta
