#include "contacts/QuotedPrintable.h"

namespace scrivanta {

namespace {

constexpr std::string_view kDigits = "0123456789ABCDEF";
constexpr std::size_t kLongestLine = 76;  // bytes, the "=" of a soft break included
constexpr std::size_t kLongestUnit = 16;  // a character of four bytes and what separates

int DigitOf(char c) {
  if (c >= '0' && c <= '9') {
    return c - '0';
  }
  const char upper = static_cast<char>(c & ~0x20);
  return upper >= 'A' && upper <= 'F' ? upper - 'A' + 10 : -1;
}

// The byte of the "=XX" at this place, or -1.
int ByteAt(std::string_view encoded, std::size_t at) {
  if (at + 3 > encoded.size() || encoded[at] != '=') {
    return -1;
  }
  const int high = DigitOf(encoded[at + 1]);
  const int low = DigitOf(encoded[at + 2]);
  return high < 0 || low < 0 ? -1 : high * 16 + low;
}

// Where the character that begins here ends, a ";" behind it included.
std::size_t EndOfUnit(std::string_view encoded, std::size_t at) {
  const auto next = [&](std::size_t place) { return place + (ByteAt(encoded, place) < 0 ? 1U : 3U); };
  const auto continues = [&](std::size_t place) {
    const int byte = ByteAt(encoded, place);
    return byte < 0 ? encoded[place] == ';' : (byte & 0xC0) == 0x80;
  };
  std::size_t end = next(at);
  while (end < encoded.size() && end - at < kLongestUnit && continues(end)) {
    end = next(end);
  }
  return end;
}

}  // namespace

std::string DecodeQuotedPrintable(std::string_view encoded) {
  std::string bytes;
  bytes.reserve(encoded.size());
  for (std::size_t i = 0; i < encoded.size();) {
    const int byte = ByteAt(encoded, i);
    bytes += byte < 0 ? encoded[i] : static_cast<char>(byte);
    i += byte < 0 ? 1 : 3;
  }
  return bytes;
}

void EncodeQuotedPrintableAppend(std::string_view bytes, std::string& encoded) {
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    encoded += '=';
    encoded += kDigits[byte >> 4U];
    encoded += kDigits[byte & 15U];
  }
}

std::string FoldQuotedPrintable(std::string_view encoded, std::size_t column) {
  std::string folded;
  folded.reserve(encoded.size() + encoded.size() / 16);
  for (std::size_t i = 0; i < encoded.size();) {
    const std::size_t end = EndOfUnit(encoded, i);
    const std::size_t room = end == encoded.size() ? kLongestLine : kLongestLine - 1;
    if (column > 0 && column + (end - i) > room) {
      folded += "=\r\n";
      column = 0;
    }
    folded += encoded.substr(i, end - i);
    column += end - i;
    i = end;
  }
  return folded;
}

}  // namespace scrivanta
