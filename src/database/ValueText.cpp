#include "database/ValueText.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <optional>

#include "text/Hexadecimal.h"
#include "text/LineText.h"

namespace scrivanta {

namespace {

template <typename Real>
void AppendShortest(Real value, std::u16string& text) {
  // Without an exponent where people write none.
  const Real size = std::fabs(value);
  const bool isPlain = size == 0 || (size >= Real(1e-5) && size < Real(1e16));
  char digits[64];
  const auto result = std::to_chars(std::begin(digits), std::end(digits), value,
                                    isPlain ? std::chars_format::fixed : std::chars_format::general);
  text.append(std::begin(digits), result.ptr);
}

std::size_t CountDigits(std::u16string_view text) {
  return static_cast<std::size_t>(std::ranges::find_if_not(text, IsDigit) - text.begin());
}

bool IsInteger(std::u16string_view text) {
  if (text.size() > 40) {
    return false;
  }
  const bool plus = text.starts_with(u'+');
  const std::string ascii(text.begin() + (plus ? 1 : 0), text.end());
  long long value = 0;
  const auto result = std::from_chars(ascii.data(), ascii.data() + ascii.size(), value);
  return result.ec == std::errc() && result.ptr == ascii.data() + ascii.size() && !(plus && ascii.starts_with('-')) &&
         std::ranges::all_of(text, [](char16_t unit) { return unit < 0x80; });
}

bool IsDecimal(std::u16string_view text, bool exponentAllowed) {
  if (text.starts_with(u'+') || text.starts_with(u'-')) {
    text.remove_prefix(1);
  }
  const std::size_t whole = CountDigits(text);
  text.remove_prefix(whole);
  std::size_t fraction = 0;
  if (text.starts_with(u'.')) {
    fraction = CountDigits(text.substr(1));
    text.remove_prefix(1 + fraction);
  }
  if (whole + fraction == 0) {
    return false;
  }
  if (exponentAllowed && (text.starts_with(u'e') || text.starts_with(u'E'))) {
    text.remove_prefix(1);
    if (text.starts_with(u'+') || text.starts_with(u'-')) {
      text.remove_prefix(1);
    }
    const std::size_t digits = CountDigits(text);
    return digits > 0 && digits == text.size();
  }
  return text.empty();
}

// Takes a number of so many digits off the front.
std::optional<unsigned> TakeNumber(std::u16string_view& text, std::size_t digits) {
  if (text.size() < digits || CountDigits(text.substr(0, digits)) != digits) {
    return std::nullopt;
  }
  unsigned value = 0;
  for (const char16_t unit : text.substr(0, digits)) {
    value = value * 10 + static_cast<unsigned>(unit - u'0');
  }
  text.remove_prefix(digits);
  return value;
}

bool TakeMark(std::u16string_view& text, char16_t mark) {
  if (!text.starts_with(mark)) {
    return false;
  }
  text.remove_prefix(1);
  return true;
}

bool TakeDate(std::u16string_view& text) {
  const auto year = TakeNumber(text, 4);
  const bool firstMark = year && TakeMark(text, u'-');
  const auto month = firstMark ? TakeNumber(text, 2) : std::nullopt;
  const bool secondMark = month && TakeMark(text, u'-');
  const auto day = secondMark ? TakeNumber(text, 2) : std::nullopt;
  return day && *year > 0 &&
         std::chrono::year_month_day(std::chrono::year(static_cast<int>(*year)), std::chrono::month(*month),
                                     std::chrono::day(*day))
             .ok();
}

bool TakeTime(std::u16string_view& text) {
  const auto hour = TakeNumber(text, 2);
  const auto minute = hour && TakeMark(text, u':') ? TakeNumber(text, 2) : std::nullopt;
  if (!minute || *hour > 23 || *minute > 59) {
    return false;
  }
  if (!TakeMark(text, u':')) {
    return true;
  }
  const auto second = TakeNumber(text, 2);
  if (!second || *second > 59) {
    return false;
  }
  if (TakeMark(text, u'.')) {
    const std::size_t digits = CountDigits(text);
    text.remove_prefix(digits);
    return digits > 0;
  }
  return true;
}

// "+08", "+08:00", "Z" or nothing.
bool TakeOffset(std::u16string_view& text) {
  if (text.empty() || TakeMark(text, u'Z')) {
    return true;
  }
  if (!TakeMark(text, u'+') && !TakeMark(text, u'-')) {
    return false;
  }
  const auto hours = TakeNumber(text, 2);
  return hours && (text.empty() || (TakeMark(text, u':') && TakeNumber(text, 2)));
}

bool IsDateTime(std::u16string_view text) {
  if (!TakeDate(text)) {
    return false;
  }
  if (text.empty()) {
    return true;
  }
  return (TakeMark(text, u' ') || TakeMark(text, u'T')) && TakeTime(text) && TakeOffset(text) && text.empty();
}

}  // namespace

void AppendReal(double value, std::u16string& text) {
  AppendShortest(value, text);
}

void AppendReal(float value, std::u16string& text) {
  AppendShortest(value, text);
}

void AppendHex(std::string_view bytes, std::u16string& text) {
  static constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
  text += u"0x";
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    text += kDigits[byte >> 4U];
    text += kDigits[byte & 15U];
  }
}

bool ParseHex(std::u16string_view text, std::string& bytes) {
  bytes.clear();
  if (text.size() % 2 != 0 || !(text.starts_with(u"0x") || text.starts_with(u"0X"))) {
    return false;
  }
  for (std::size_t i = 2; i < text.size(); i += 2) {
    const int high = HexDigitValue(text[i]);
    const int low = HexDigitValue(text[i + 1]);
    if (high < 0 || low < 0) {
      return false;
    }
    bytes += static_cast<char>(high * 16 + low);
  }
  return true;
}

KindWords WordsOf(ColumnKind kind) {
  switch (kind) {
    case ColumnKind::kInteger:
      return {"a whole number of 64 bits", u"64位以内的整数"};
    case ColumnKind::kReal:
    case ColumnKind::kDecimal:
      return {"a number", u"数"};
    case ColumnKind::kDate:
    case ColumnKind::kDateTime:
      return {"a date such as 2024-01-31 or 2024-01-31 08:30:00", u"2024-01-31或2024-01-31 08:30:00这样的日期"};
    case ColumnKind::kBinary:
      return {"hexadecimal digits behind 0x", u"0x开头的十六进制数字"};
    case ColumnKind::kText:
    case ColumnKind::kOther:
      break;
  }
  return {"a text", u"文本"};
}

bool Fits(ColumnKind kind, std::u16string_view text) {
  switch (kind) {
    case ColumnKind::kInteger:
      return IsInteger(text);
    case ColumnKind::kReal:
      return IsDecimal(text, true);
    case ColumnKind::kDecimal:
      return IsDecimal(text, true);
    case ColumnKind::kDate:
    case ColumnKind::kDateTime:
      return IsDateTime(text);
    case ColumnKind::kBinary: {
      std::string bytes;
      return ParseHex(text, bytes);
    }
    case ColumnKind::kText:
    case ColumnKind::kOther:
      break;
  }
  return true;
}

}  // namespace scrivanta
