#include "calendar/DateParts.h"

#include <algorithm>
#include <array>

#include "text/LineText.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kBlanks = u" \t\u3000";

struct Separators {
  char16_t afterYear;
  char16_t afterMonth;
};

constexpr std::array kSeparators = {Separators{u'-', u'-'}, Separators{u'/', u'/'}, Separators{u'.', u'.'},
                                    Separators{u'年', u'月'}};

std::optional<DateParts> Split(std::u16string_view text, const Separators& separators) {
  const std::size_t first = text.find(separators.afterYear);
  const std::size_t second = first == std::u16string_view::npos ? first : text.find(separators.afterMonth, first + 1);
  if (second == std::u16string_view::npos) {
    return std::nullopt;
  }
  const std::optional<int> year = ParseDigits(text.substr(0, first));
  const DateParts parts{
      .year = year.value_or(0), .month = text.substr(first + 1, second - first - 1), .day = text.substr(second + 1)};
  return year && !parts.month.empty() && !parts.day.empty() ? std::optional(parts) : std::nullopt;
}

}  // namespace

std::optional<int> ParseDigits(std::u16string_view text) {
  constexpr std::size_t kMostDigits = 4;
  if (text.empty() || text.size() > kMostDigits) {
    return std::nullopt;
  }
  int number = 0;
  for (const char16_t digit : text) {
    if (digit < u'0' || digit > u'9') {
      return std::nullopt;
    }
    number = number * 10 + (digit - u'0');
  }
  return number;
}

std::optional<DateParts> SplitDate(std::u16string_view text) {
  text = Trim(text, kBlanks);
  for (const Separators& separators : kSeparators) {
    if (std::optional<DateParts> parts = Split(text, separators)) {
      if (parts->day.size() > 1 && (parts->day.back() == u'日' || parts->day.back() == u'号')) {
        parts->day.remove_suffix(1);
      }
      return parts;
    }
  }
  return std::nullopt;
}

}  // namespace scrivanta
