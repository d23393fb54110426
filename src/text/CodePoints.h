#pragma once

#include <cstddef>
#include <string_view>

#include "text/Surrogates.h"

namespace scrivanta {

// The character that begins there; a lone surrogate is its own.
constexpr char32_t CodePointAt(std::u16string_view text, std::size_t at) {
  const bool isPair = IsHighSurrogate(text[at]) && at + 1 < text.size() && IsLowSurrogate(text[at + 1]);
  return isPair ? CodePointOfPair(text[at], text[at + 1]) : text[at];
}

constexpr std::size_t UnitsOf(char32_t codePoint) {
  return codePoint > 0xFFFF ? 2 : 1;
}

void ForEachCodePoint(std::u16string_view text, const auto& visit) {
  for (std::size_t at = 0; at < text.size();) {
    const char32_t codePoint = CodePointAt(text, at);
    visit(codePoint);
    at += UnitsOf(codePoint);
  }
}

}  // namespace scrivanta
