#include "text/StandIns.h"

#include <algorithm>
#include <cstddef>

#include "text/Surrogates.h"

namespace scrivanta {

namespace {

constexpr char32_t kSurrogates = 0x800;
constexpr char32_t kFirstOfLastPlane = 0x100000;
constexpr char32_t kBehindLastPlane = 0x110000;

bool IsPairAt(std::u16string_view text, std::size_t at) {
  return IsHighSurrogate(text[at]) && at + 1 < text.size() && IsLowSurrogate(text[at + 1]);
}

// Calls one function with each pair of surrogates, the other with each unit that is no part of one.
template <typename OnPair, typename OnUnit>
void ForEachCharacter(std::u16string_view text, OnPair onPair, OnUnit onUnit) {
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (IsPairAt(text, at)) {
      onPair(CodePointOfPair(text[at], text[at + 1]));
      ++at;
    } else {
      onUnit(text[at]);
    }
  }
}

void AppendPair(char32_t codePoint, std::u16string& text) {
  text += {HighSurrogateOf(codePoint), LowSurrogateOf(codePoint)};
}

bool HoldsLoneSurrogate(std::u16string_view text) {
  bool holds = false;
  ForEachCharacter(
      text, [](char32_t) {}, [&holds](char16_t unit) { holds |= IsSurrogate(unit); });
  return holds;
}

bool HoldsAnyFrom(char32_t first, std::u16string_view text) {
  bool holds = false;
  ForEachCharacter(
      text, [&](char32_t codePoint) { holds |= codePoint >= first && codePoint < first + kSurrogates; },
      [](char16_t) {});
  return holds;
}

// As many in a row as there are surrogates, none of them in the text; the last of the plane when all are in use.
char32_t FirstOfUnused(std::u16string_view text) {
  char32_t first = kBehindLastPlane - kSurrogates;
  for (char32_t next = first; next >= kFirstOfLastPlane; next -= kSurrogates) {
    if (!HoldsAnyFrom(next, text)) {
      return next;
    }
  }
  return first;
}

}  // namespace

StandIns::StandIns(Encoding encoding, std::u16string_view text) : encoding_(encoding) {
  if (HoldsLoneSurrogate(text) && scrivanta::Decode(encoding, scrivanta::Encode(encoding, text)) != text) {
    first_ = FirstOfUnused(text);
  }
}

std::string StandIns::Encode(std::u16string_view text) const {
  if (first_ == 0) {
    return scrivanta::Encode(encoding_, text);
  }
  std::u16string whole;
  whole.reserve(text.size());
  ForEachCharacter(
      text, [&whole](char32_t codePoint) { AppendPair(codePoint, whole); },
      [&](char16_t unit) {
        if (IsSurrogate(unit)) {
          AppendPair(first_ + (unit - 0xD800U), whole);
        } else {
          whole += unit;
        }
      });
  return scrivanta::Encode(encoding_, whole);
}

std::u16string StandIns::Decode(std::string_view bytes) const {
  std::u16string whole = scrivanta::Decode(encoding_, bytes);
  if (first_ == 0) {
    return whole;
  }
  std::u16string text;
  text.reserve(whole.size());
  ForEachCharacter(
      whole,
      [&](char32_t codePoint) {
        if (codePoint >= first_ && codePoint < first_ + kSurrogates) {
          text += static_cast<char16_t>(0xD800U + (codePoint - first_));
        } else {
          AppendPair(codePoint, text);
        }
      },
      [&text](char16_t unit) { text += unit; });
  return text;
}

}  // namespace scrivanta
