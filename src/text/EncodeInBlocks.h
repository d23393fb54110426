// The loop that the encodings of text share: runs of ASCII fast, everything else as the encoding has it.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "text/AsciiRun.h"

namespace scrivanta {

// Appends the bytes of a text. A form has kMostBytesOfUnit, and Put(at, end, output), which writes the character that
// begins at `at`, no ASCII one, and moves both on; of two units it takes no more bytes than two may take.
template <typename Form>
void EncodeInBlocks(std::u16string_view text, const Form& form, std::string& bytes) {
  constexpr std::size_t kBlockUnits = 2048;
  const char16_t* at = text.data();
  const char16_t* const end = at + text.size();
  while (at < end) {
    // Not initialised: what is appended has been written. The last character may be a pair.
    std::array<char, (kBlockUnits + 1) * Form::kMostBytesOfUnit> block;
    const char16_t* const limit = at + std::min<std::size_t>(kBlockUnits, static_cast<std::size_t>(end - at));
    char* output = block.data();
    while (at < limit) {
      if (*at < 0x80) {
        NarrowAsciiRun(at, limit, output);
        while (at < limit && *at < 0x80) {
          *output++ = static_cast<char>(*at++);
        }
      } else {
        form.Put(at, end, output);
      }
    }
    bytes.append(block.data(), output);
  }
}

}  // namespace scrivanta
