#include "text/Numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <system_error>

#include "text/LineText.h"

namespace scrivanta {

namespace {

// Far beyond the range of a double together with any number of digits that fits into memory.
constexpr long long kMostExponent = 1'000'000'000'000;

// A text read character by character, as if it held no blanks.
class Scanner {
 public:
  explicit Scanner(std::u16string_view text) : rest_(text) {}

  char16_t Peek() {
    const std::size_t blanks = std::min(rest_.find_first_not_of(u" \t\r\n"), rest_.size());
    rest_.remove_prefix(blanks);
    return rest_.empty() ? u'\0' : rest_.front();
  }
  void Skip() { rest_.remove_prefix(1); }
  bool SkipIf(std::u16string_view anyOf) {
    const char16_t c = Peek();
    const bool found = c != u'\0' && anyOf.find(c) != std::u16string_view::npos;
    if (found) {
      Skip();
    }
    return found;
  }
  // Appends the digits that follow and returns how many there are.
  std::size_t TakeDigits(std::string& digits) {
    const std::size_t before = digits.size();
    for (char16_t c = Peek(); IsDigit(c); c = Peek()) {
      digits += static_cast<char>(c);
      Skip();
    }
    return digits.size() - before;
  }

 private:
  std::u16string_view rest_;
};

bool SkipSign(Scanner& scanner) {
  if (scanner.SkipIf(u"-")) {
    return true;
  }
  scanner.SkipIf(u"+");
  return false;
}

long long Exponent(Scanner& scanner) {
  if (!scanner.SkipIf(u"eEdD")) {
    return 0;
  }
  const bool negative = SkipSign(scanner);
  std::string digits;
  scanner.TakeDigits(digits);
  long long exponent = 0;
  for (const char digit : digits) {
    exponent = std::min(exponent * 10 + (digit - '0'), kMostExponent);
  }
  return negative ? -exponent : exponent;
}

// 0.DIGITS times ten to the power given.
double Value(std::string_view digits, long long exponent) {
  const std::size_t leadingZeros = std::min(digits.find_first_not_of('0'), digits.size());
  digits.remove_prefix(leadingZeros);
  exponent -= static_cast<long long>(leadingZeros);
  const std::string written = "0." + std::string(digits) + "e" + std::to_string(exponent);
  double value = 0;
  if (std::from_chars(written.data(), written.data() + written.size(), value).ec == std::errc::result_out_of_range) {
    return exponent > 0 ? std::numeric_limits<double>::infinity() : 0.0;
  }
  return value;
}

}  // namespace

double LeadingNumber(std::u16string_view text) {
  Scanner scanner(text);
  const bool negative = SkipSign(scanner);
  std::string digits;
  const std::size_t whole = scanner.TakeDigits(digits);
  if (scanner.SkipIf(u".")) {
    scanner.TakeDigits(digits);
  }
  if (digits.empty()) {
    return 0;
  }
  const double value = Value(digits, static_cast<long long>(whole) + Exponent(scanner));
  return negative ? -value : value;
}

long long LeadingWholeNumber(std::u16string_view text) {
  const double number = LeadingNumber(text);
  // The greatest whole number of the type is no double; the next greater double is.
  constexpr double kBeyond = 9223372036854775808.0;
  if (number >= kBeyond) {
    return std::numeric_limits<long long>::max();
  }
  if (number < -kBeyond) {
    return std::numeric_limits<long long>::min();
  }
  // Rounds halves to even, as the processor does unless told otherwise.
  return std::llrint(number);
}

}  // namespace scrivanta
