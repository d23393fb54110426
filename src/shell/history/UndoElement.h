// One entry of the history of the document, as it is seen from outside.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace scrivanta {

struct UndoElement {
  std::u16string Text;        // the whole document text after the change
  std::int32_t SelStart = 0;  // the caret after the change, in characters from the start
  std::int32_t TextLen = 0;   // the length of Text in characters
};

// The text by which two versions differ: of the longer one, as many characters as it is longer, beginning at the
// position less their number. Positions count from 1; one that lies before the text means its start.
std::u16string Change(std::u16string_view textA, std::u16string_view textB, std::int32_t position);

}  // namespace scrivanta
