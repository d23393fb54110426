// Whether a line's key occurs anywhere in the joined keys of the lines kept before it.
//
// A key is the line between two spaces, and it is found wherever it stands in the joined keys: inside one of them, or
// across several. Since it begins and ends with a space, the question is whether the words of the line stand somewhere
// in a row. Searching the text for every line would take a time that grows with the square of the file. Here the places
// are looked up where the line's rarest word stands, or its rarest run of several words where single ones are too
// frequent, and every place is compared byte by byte: the answer is always that of the plain search.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

#include "lines/duplicates/JoinedKeys.h"
#include "lines/duplicates/SeenLines.h"
#include "lines/duplicates/WordRunIndex.h"

namespace scrivanta {

class KeyIndex {
 public:
  // The bytes of all lines to come, as far as they can be known.
  explicit KeyIndex(std::uint64_t expectedBytes) : keys_(static_cast<std::size_t>(expectedBytes)) {}

  // Whether the key of the line occurs in the joined keys. When it does not, it is joined to them. Throws
  // std::length_error for more than 2^32 words.
  bool ContainsOrAdd(std::string_view line);

 private:
  void HashWords(std::string_view line);
  WordRunIndex& IndexForWords(std::size_t count);

  JoinedKeys keys_;
  SeenLines lines_;
  std::map<std::size_t, WordRunIndex> indices_;  // by the length of their runs
  std::vector<std::uint64_t> wordHashes_;        // of the line in question
};

}  // namespace scrivanta
