#include "text/Surrogates.h"

namespace scrivanta {

namespace {

char16_t UnitOfByte(unsigned char byte) {
  return static_cast<char16_t>(byte < 0x80 ? byte : 0xDC00U + byte);
}

}  // namespace

void LoneUnits::AppendByte(unsigned char byte) {
  AppendSurrogate(UnitOfByte(byte));
}

void LoneUnits::AppendSurrogate(char16_t unit) {
  if (IsLowSurrogate(unit)) {
    TakeHighsApart();
  }
  text_.push_back(unit);
}

void LoneUnits::TakeHighsApart() {
  std::size_t at = text_.size();
  while (at > begin_ && IsHighSurrogate(text_[at - 1])) {
    --at;
  }
  const std::u16string highs = text_.substr(at);
  text_.resize(at);
  for (const char16_t high : highs) {
    for (const char byte : bytesOfUnit_(high)) {
      text_.push_back(UnitOfByte(static_cast<unsigned char>(byte)));
    }
  }
}

}  // namespace scrivanta
