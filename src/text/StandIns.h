// Characters that stand in for lone surrogates. Text that was decoded holds these in the place of bytes that are no
// text; encoded in another encoding they need not come back: a lone byte of UTF-8 and the letter behind it are a
// character in GBK. The characters that stand in for them are whole ones, of the last plane, and whatever they stand
// beside, or are cut off from, they come back.
#pragma once

#include <string>
#include <string_view>

#include "text/Encoding.h"

namespace scrivanta {

class StandIns {
 public:
  // For texts made of parts of this one. None are needed for a text that the encoding brings back as it is.
  StandIns(Encoding encoding, std::u16string_view text);

  // Encoded, with the characters that stand in, and back.
  std::string Encode(std::u16string_view text) const;
  std::u16string Decode(std::string_view bytes) const;

 private:
  Encoding encoding_;
  char32_t first_ = 0;  // stands for U+D800, those behind it for the others in their order; 0 when none are needed
};

}  // namespace scrivanta
