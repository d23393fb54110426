// Recognises the encoding of a document from its bytes, which may come in pieces.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "text/DocumentFormat.h"

namespace scrivanta {

class EncodingProbe {
 public:
  void Take(std::string_view bytes);
  // Of what was taken; see DecodeDocument for what proves which.
  DocumentEncoding Encoding() const;
  // Further bytes would change nothing.
  bool IsDecided() const;

 private:
  bool IsUtf8() const;

  std::string head_;  // as many bytes as the longest mark has
  std::string rest_;  // the beginning of a character that was cut off
  bool isWellFormed_ = true;
  std::size_t longCharacters_ = 0;  // of three bytes or more
};

// The byte-order mark of the encoding; none for the two that have none.
std::string_view MarkOf(DocumentEncoding encoding);

}  // namespace scrivanta
