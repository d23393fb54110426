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
  if (IsLowSurrogate(unit) && text_.size() > begin_ && IsHighSurrogate(text_.back())) {
    TakeHighApart();
  }
  text_.push_back(unit);
}

void LoneUnits::TakeHighApart() {
  const char16_t high = text_.back();
  text_.pop_back();
  for (const char byte : bytesOfUnit_(high)) {
    text_.push_back(UnitOfByte(static_cast<unsigned char>(byte)));
  }
}

}  // namespace scrivanta
