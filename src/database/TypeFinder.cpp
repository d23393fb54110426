#include "database/TypeFinder.h"

#include <algorithm>
#include <charconv>

#include "database/ValueText.h"

namespace scrivanta {

namespace {

constexpr std::size_t kMostInteger = 18;    // digits that fit into 64 bits whatever they are
constexpr std::size_t kMostExactReal = 15;  // digits of a whole number that a double holds
constexpr std::size_t kMostReal = 32;       // characters that a double may print

// Digits before and behind the point of a number written the plain way; nothing for any other text.
struct Digits {
  std::size_t whole = 0;
  std::size_t fraction = 0;
};
bool MeasureNumber(std::u16string_view text, Digits& digits) {
  if (text.starts_with(u'-')) {
    text.remove_prefix(1);
    if (std::ranges::all_of(text, [](char16_t unit) { return unit == u'0' || unit == u'.'; })) {
      return false;  // the sign of a zero would go
    }
  }
  const std::size_t point = std::min(text.find(u'.'), text.size());
  const std::u16string_view whole = text.substr(0, point);
  const std::u16string_view fraction = text.substr(std::min(point + 1, text.size()));
  const auto isDigit = [](char16_t unit) { return unit >= u'0' && unit <= u'9'; };
  if (whole.empty() || (whole.size() > 1 && whole[0] == u'0') || (point < text.size() && fraction.empty()) ||
      !std::ranges::all_of(whole, isDigit) || !std::ranges::all_of(fraction, isDigit)) {
    return false;
  }
  digits = {whole.size(), fraction.size()};
  return true;
}

bool IsShortestReal(std::u16string_view text) {
  if (text.size() > kMostReal) {
    return false;
  }
  const std::string ascii(text.begin(), text.end());
  double value = 0;
  std::from_chars(ascii.data(), ascii.data() + ascii.size(), value);
  std::u16string again;
  AppendReal(value, again);
  return again == text;
}

}  // namespace

void TypeFinder::Look(std::u16string_view text) {
  longest_ = std::max(longest_, text.size());
  if (isInteger_ || isReal_ || isDecimal_) {
    if (!LookAtNumber(text)) {
      isInteger_ = isReal_ = isDecimal_ = false;
    }
  }
  isDate_ = isDate_ && text.size() == 10 && Fits(ColumnKind::kDate, text);
  isDateTime_ = isDateTime_ && text.size() == 19 && text[10] == u' ' && Fits(ColumnKind::kDateTime, text);
  any_ = true;
}

bool TypeFinder::LookAtNumber(std::u16string_view text) {
  Digits digits;
  if (!MeasureNumber(text, digits)) {
    return false;
  }
  isInteger_ = isInteger_ && digits.fraction == 0 && digits.whole <= kMostInteger;
  // A number without a fraction beside others would come back with one.
  isDecimal_ = isDecimal_ && (!any_ || digits.fraction == scale_);
  scale_ = digits.fraction;
  wholeDigits_ = std::max(wholeDigits_, digits.whole);
  isReal_ = isReal_ && (digits.fraction == 0 ? digits.whole <= kMostExactReal : IsShortestReal(text));
  return true;
}

ColumnType TypeFinder::Found() const {
  if (any_ && isInteger_) {
    return {ColumnKind::kInteger, wholeDigits_, 0};
  }
  if (any_ && isReal_) {
    return {ColumnKind::kReal, 0, 0};
  }
  if (any_ && isDecimal_) {
    return {ColumnKind::kDecimal, wholeDigits_ + scale_, scale_};
  }
  if (any_ && isDate_) {
    return {ColumnKind::kDate, 0, 0};
  }
  if (any_ && isDateTime_) {
    return {ColumnKind::kDateTime, 0, 0};
  }
  return {ColumnKind::kText, longest_, 0};
}

}  // namespace scrivanta
