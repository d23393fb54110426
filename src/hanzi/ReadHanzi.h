// How a text is read: character by character, with the phrases that it holds.
#pragma once

#include <string_view>
#include <vector>

#include "hanzi/Hanzi.h"

namespace scrivanta {

enum class ReadAs {
  kText,
  kName,  // the first Chinese characters are a surname, where they can be one
};

// The reading of every unit of the text; that of a pair stands at its first. Nothing is doubtful that a phrase or a
// surname decides. Where phrases overlap, the one that begins first counts; of those that begin together, the longest.
void ReadHanzi(std::u16string_view text, ReadAs readAs, std::vector<Reading>& readings);

}  // namespace scrivanta
