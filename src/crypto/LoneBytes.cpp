#include "crypto/LoneBytes.h"

#include <algorithm>

#include "text/Encoding.h"
#include "text/Surrogates.h"

namespace scrivanta {

namespace {

constexpr char16_t kApart = 0x1F;
constexpr std::size_t kLongestForm = 4;  // bytes, and so units, that can make one character

bool IsLoneByteAt(std::u16string_view text, std::size_t place) {
  const bool isHalfOfPair = place > 0 && IsHighSurrogate(text[place - 1]);
  return text[place] > 0xDC80 && text[place] <= 0xDCFF && !isHalfOfPair;
}

// Whether the byte and the beginning of the text are something else than the two of them, once they are bytes.
bool MakeACharacter(char16_t byte, std::u16string_view text) {
  const std::u16string together = byte + std::u16string(text.substr(0, kLongestForm));
  return Decode(Encoding::kGbk, Encode(Encoding::kGbk, together)).front() != byte;
}

}  // namespace

std::u16string WithLoneBytesApart(std::u16string_view text) {
  std::u16string apart;
  apart.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    apart += text[i];
    if (IsLoneByteAt(text, i)) {
      const std::size_t next = std::min(text.find_first_not_of(kApart, i + 1), text.size());
      apart.append(MakeACharacter(text[i], text.substr(next)) ? 1 : 0, kApart);
    }
  }
  return apart;
}

std::u16string WithLoneBytesTogether(std::u16string_view text) {
  // From the end, since what follows must be what it was.
  std::u16string reversed;
  reversed.reserve(text.size());
  for (std::size_t i = text.size(); i > 0; --i) {
    if (IsLoneByteAt(text, i - 1) && reversed.ends_with(kApart)) {
      const std::size_t next = reversed.find_last_not_of(kApart) + 1;  // what follows the controls is before it
      const std::size_t count = std::min(next, kLongestForm);
      std::u16string following = reversed.substr(next - count, count);
      std::ranges::reverse(following);
      if (MakeACharacter(text[i - 1], following)) {
        reversed.pop_back();
      }
    }
    reversed += text[i - 1];
  }
  std::ranges::reverse(reversed);
  return reversed;
}

}  // namespace scrivanta
