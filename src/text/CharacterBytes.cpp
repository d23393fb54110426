#include "text/CharacterBytes.h"

#include "text/Utf8.h"

namespace scrivanta {

namespace {

unsigned ByteAt(std::string_view bytes, std::size_t i) {
  return static_cast<unsigned char>(bytes[i]);
}

bool IsLead(unsigned byte) {
  return byte >= 0x81 && byte <= 0xFE;
}

bool IsDigit(unsigned byte) {
  return byte >= 0x30 && byte <= 0x39;
}

std::size_t GbkCharacterBytes(std::string_view bytes) {
  if (bytes.size() < 2 || !IsLead(ByteAt(bytes, 0))) {
    return 1;
  }
  const unsigned second = ByteAt(bytes, 1);
  if (second >= 0x40 && second <= 0xFE && second != 0x7F) {
    return 2;
  }
  const bool isFourBytes =
      bytes.size() >= 4 && IsDigit(second) && IsLead(ByteAt(bytes, 2)) && IsDigit(ByteAt(bytes, 3));
  return isFourBytes ? 4 : 1;
}

std::size_t Utf8CharacterBytes(std::string_view bytes) {
  const unsigned first = ByteAt(bytes, 0);
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  return bytes.size() >= length && MeasureUtf8(bytes.substr(0, length)).bytes == length ? length : 1;
}

}  // namespace

std::size_t CharacterBytes(Encoding encoding, std::string_view bytes) {
  if (bytes.empty()) {
    return 0;
  }
  if (ByteAt(bytes, 0) < 0x80) {
    return 1;
  }
  return encoding == Encoding::kGbk ? GbkCharacterBytes(bytes) : Utf8CharacterBytes(bytes);
}

bool MayContinueCharacter(Encoding encoding, unsigned char byte) {
  return encoding == Encoding::kGbk ? byte >= 0x40 || IsDigit(byte) : byte >= 0x80 && byte < 0xC0;
}

}  // namespace scrivanta
