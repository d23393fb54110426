// Finds a text in encoded bytes where it begins at a character: in GBK the last byte of one may look like another.
#pragma once

#include <string>
#include <string_view>

#include "text/CharacterBytes.h"
#include "text/Encoding.h"

namespace scrivanta {

class AlignedFinder {
 public:
  // The text, in the encoding, is not empty.
  AlignedFinder(Encoding encoding, std::string text)
      : encoding_(encoding),
        text_(std::move(text)),
        mayBeMisaligned_(encoding == Encoding::kGbk &&
                         MayContinueCharacter(encoding, static_cast<unsigned char>(text_.front()))) {}

  // In bytes from 0, npos when it is not there.
  std::size_t Find(std::string_view bytes) const {
    std::size_t found = bytes.find(text_);
    std::size_t aligned = 0;
    while (mayBeMisaligned_ && found != std::string_view::npos) {
      while (aligned < found) {
        aligned += CharacterBytes(encoding_, bytes.substr(aligned));
      }
      if (aligned == found) {
        break;
      }
      found = bytes.find(text_, found + 1);
    }
    return found;
  }

  const std::string& text() const noexcept { return text_; }

 private:
  Encoding encoding_;
  std::string text_;
  bool mayBeMisaligned_;
};

}  // namespace scrivanta
