#include "lines/LineNumber.h"

#include <algorithm>
#include <string>

namespace scrivanta {

namespace {

constexpr std::string_view kDigits = "0123456789";

// A key is, from its highest bit on: 1 bit for numbers that are not negative, 15 bits of magnitude, 47 bits for the
// first 14 digits, and 1 bit that is set when these do not say all. Of a negative number all but the first bit are
// turned round.
constexpr std::uint64_t kNotNegative = 1ULL << 63U;
constexpr unsigned kMagnitudeShift = 48;
constexpr long long kZeroMagnitude = 1LL << 14U;  // of numbers from 0.1 to below 1
constexpr long long kMostMagnitude = (1LL << 15U) - 1;
constexpr std::size_t kDigitsInKey = 14;
constexpr std::uint64_t kInexact = 1;

std::string_view DigitsAt(std::string_view line, std::size_t begin) {
  const std::size_t end = std::min(line.find_first_not_of(kDigits, begin), line.size());
  return line.substr(begin, end - begin);
}

// How many bytes the character at the front of the line takes.
std::size_t GbkCharacterLength(std::string_view line) {
  const auto first = static_cast<unsigned char>(line[0]);
  if (first <= 0x80 || first == 0xFF || line.size() < 2) {
    return 1;
  }
  const auto second = static_cast<unsigned char>(line[1]);
  if (second < '0' || second > '9') {
    return second >= 0x40 && second != 0x7F && second != 0xFF ? 2 : 1;
  }
  // What has a digit in second place has four bytes, or is no character.
  const std::u16string decoded = Decode(Encoding::kGbk, line.substr(0, 4));
  return Encode(Encoding::kGbk, decoded.substr(0, 1)).size() == 1 ? 1 : 4;
}

std::size_t FindDigit(std::string_view line, Encoding encoding) {
  std::size_t at = 0;
  while (at < line.size()) {
    const char byte = line[at];
    if (byte >= '0' && byte <= '9') {
      return at;
    }
    at += encoding == Encoding::kUtf8 ? 1 : GbkCharacterLength(line.substr(at));
  }
  return std::string_view::npos;
}

}  // namespace

LineNumber::LineNumber(std::string_view line, Encoding encoding) {
  const std::size_t begin = FindDigit(line, encoding);
  if (begin == std::string_view::npos) {
    return;
  }
  whole_ = DigitsAt(line, begin);
  const std::size_t point = begin + whole_.size();
  if (point < line.size() && line[point] == '.') {
    fraction_ = DigitsAt(line, point + 1);
  }
  whole_.remove_prefix(std::min(whole_.find_first_not_of('0'), whole_.size()));
  fraction_ = fraction_.substr(0, fraction_.find_last_not_of('0') + 1);
  const bool isZero = whole_.empty() && fraction_.empty();
  negative_ = !isZero && begin > 0 && line[begin - 1] == '-';
}

std::uint64_t LineNumber::Key() const {
  const std::uint64_t magnitude = MagnitudeKey();
  return negative_ ? ~magnitude & ~kNotNegative : magnitude | kNotNegative;
}

bool LineNumber::IsExactKey(std::uint64_t key) {
  const bool lastBit = (key & kInexact) != 0;
  return lastBit != ((key & kNotNegative) != 0);
}

std::uint64_t LineNumber::MagnitudeKey() const {
  if (whole_.empty() && fraction_.empty()) {
    return 0;
  }
  const std::size_t zeros = whole_.empty() ? fraction_.find_first_not_of('0') : 0;
  const std::string_view fraction = fraction_.substr(zeros);
  const auto magnitude = static_cast<long long>(whole_.size()) - static_cast<long long>(zeros) + kZeroMagnitude;
  const bool fits = magnitude > 0 && magnitude <= kMostMagnitude;
  std::uint64_t key = static_cast<std::uint64_t>(std::clamp(magnitude, 0LL, kMostMagnitude)) << kMagnitudeShift;
  if (!fits) {
    return key | kInexact;
  }
  std::uint64_t digits = 0;
  for (std::size_t i = 0; i < kDigitsInKey; ++i) {
    const std::size_t behind = i - std::min(i, whole_.size());
    const char digit = i < whole_.size() ? whole_[i] : behind < fraction.size() ? fraction[behind] : '0';
    digits = digits * 10 + static_cast<std::uint64_t>(digit - '0');
  }
  const bool exact = whole_.find_first_not_of('0', std::min(kDigitsInKey, whole_.size())) == std::string_view::npos &&
                     whole_.size() + fraction.size() <= std::max(kDigitsInKey, whole_.size());
  return key | (digits << 1U) | (exact ? 0 : kInexact);
}

std::weak_ordering operator<=>(const LineNumber& left, const LineNumber& right) {
  if (left.negative_ != right.negative_) {
    return left.negative_ ? std::weak_ordering::less : std::weak_ordering::greater;
  }
  const LineNumber& smaller = left.negative_ ? right : left;  // when its magnitude is the smaller one
  const LineNumber& larger = left.negative_ ? left : right;
  if (smaller.whole_.size() != larger.whole_.size()) {
    return smaller.whole_.size() <=> larger.whole_.size();
  }
  const std::strong_ordering whole = smaller.whole_ <=> larger.whole_;
  return std::is_neq(whole) ? whole : smaller.fraction_ <=> larger.fraction_;
}

}  // namespace scrivanta
