#include "sheets/SheetFormats.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>

#include "text/Encoding.h"

namespace scrivanta {

namespace {

constexpr std::int64_t kSecondsADay = 86400;
constexpr std::int64_t kDaysTo9999 = 2958466;
constexpr std::size_t kEscapeSize = 7;  // "_x000D_"

std::string TwoDigits(std::int64_t number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string DayText(std::int64_t days, DateSystem system) {
  if (system == DateSystem::k1900 && days == 60) {
    return "1900-02-29";  // sheets count a day that there never was
  }
  using std::chrono::sys_days;
  const sys_days origin = system == DateSystem::k1904 ? sys_days(std::chrono::year(1904) / 1 / 1)
                          : days < 60                 ? sys_days(std::chrono::year(1899) / 12 / 31)
                                                      : sys_days(std::chrono::year(1899) / 12 / 30);
  const std::chrono::year_month_day date(origin + std::chrono::days(days));
  return std::to_string(static_cast<int>(date.year())) + '-' + TwoDigits(static_cast<unsigned>(date.month())) + '-' +
         TwoDigits(static_cast<unsigned>(date.day()));
}

// The character of an escape at this place.
std::optional<char16_t> EscapeAt(std::string_view text, std::size_t at) {
  if (text.size() - at < kEscapeSize || text[at] != '_' || text[at + 1] != 'x' || text[at + kEscapeSize - 1] != '_') {
    return std::nullopt;
  }
  unsigned unit = 0;
  const char* const begin = text.data() + at + 2;
  const auto [end, error] = std::from_chars(begin, begin + 4, unit, 16);
  return error == std::errc() && end == begin + 4 ? std::optional(static_cast<char16_t>(unit)) : std::nullopt;
}

}  // namespace

bool IsDateFormat(unsigned number) {
  return (number >= 14 && number <= 22) || (number >= 27 && number <= 36) || (number >= 45 && number <= 47) ||
         (number >= 50 && number <= 58);
}

bool IsDateFormat(std::string_view code) {
  char closes = '\0';  // what ends the literal or the condition that we are in
  for (std::size_t i = 0; i < code.size(); ++i) {
    const char c = code[i];
    if (closes != '\0') {
      // "[h]" counts hours.
      if (closes == ']' && code[i - 1] == '[' && std::string_view("hms").find(c) != std::string_view::npos &&
          code.substr(i).find_first_not_of(c) == code.substr(i).find(']')) {
        return true;
      }
      closes = c == closes ? '\0' : closes;
    } else if (c == '\\' || c == '_' || c == '*') {
      ++i;
    } else if (c == '"' || c == '[') {
      closes = c == '"' ? '"' : ']';
    } else if (c == ';') {
      return false;
    } else if (std::string_view("ymdhsYMDHS").find(c) != std::string_view::npos) {
      return true;
    }
  }
  return false;
}

std::optional<double> SheetNumberOf(std::string_view value) {
  double number = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
  const bool isWhole = error == std::errc() && end == value.data() + value.size() && std::isfinite(number);
  return isWhole ? std::optional(number) : std::nullopt;
}

std::string SheetNumberText(double number) {
  std::array<char, 400> digits;  // the largest has 309 before the point, the smallest 324 behind it and 17 more
  return {digits.data(),
          std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed).ptr};
}

std::string SheetDateText(double number, DateSystem system) {
  if (!(number >= 0 && number < static_cast<double>(kDaysTo9999))) {
    return SheetNumberText(number);
  }
  const auto seconds = static_cast<std::int64_t>(std::llround(number * static_cast<double>(kSecondsADay)));
  const std::int64_t day = seconds / kSecondsADay;
  const std::int64_t rest = seconds % kSecondsADay;
  const std::string time = TwoDigits(rest / 3600) + ':' + TwoDigits(rest / 60 % 60) + ':' + TwoDigits(rest % 60);
  if (day == 0 && system == DateSystem::k1900) {
    return time;
  }
  return rest == 0 ? DayText(day, system) : DayText(day, system) + ' ' + time;
}

std::string WithoutSheetEscapes(std::string_view text) {
  if (text.find("_x") == std::string_view::npos) {
    return std::string(text);
  }
  std::string plain;
  std::u16string units;  // of escapes side by side: the two halves of a pair are one character
  const auto flush = [&] {
    plain += Encode(Encoding::kUtf8, units);
    units.clear();
  };
  for (std::size_t i = 0; i < text.size();) {
    if (const std::optional<char16_t> unit = EscapeAt(text, i)) {
      units += *unit;
      i += kEscapeSize;
    } else {
      flush();
      plain += text[i++];
    }
  }
  flush();
  return plain;
}

std::string WithSheetEscapes(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const bool isControl = byte < 0x20 && text[i] != '\n' && text[i] != '\t';
    if (isControl || EscapeAt(text, i)) {
      constexpr std::string_view kHex = "0123456789ABCDEF";
      escaped += "_x00";
      escaped += kHex[byte >> 4U];
      escaped += kHex[byte & 15U];
      escaped += '_';
    } else {
      escaped += text[i];
    }
  }
  return escaped;
}

}  // namespace scrivanta
