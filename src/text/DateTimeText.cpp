#include "text/DateTimeText.h"

#include <array>
#include <cstdio>

namespace scrivanta {

namespace {

std::u16string Formatted(const char* format, int first, unsigned second, unsigned third) {
  std::array<char, 32> text{};
  const int length = std::snprintf(text.data(), text.size(), format, first, second, third);
  return {text.begin(), text.begin() + length};
}

}  // namespace

std::u16string DateText(std::chrono::local_time<std::chrono::milliseconds> now) {
  const std::chrono::year_month_day date{std::chrono::floor<std::chrono::days>(now)};
  return Formatted("%04d-%02u-%02u", static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                   static_cast<unsigned>(date.day()));
}

std::u16string TimeText(std::chrono::local_time<std::chrono::milliseconds> now) {
  const std::chrono::hh_mm_ss time{now - std::chrono::floor<std::chrono::days>(now)};
  return Formatted("%02d:%02u:%02u", static_cast<int>(time.hours().count()),
                   static_cast<unsigned>(time.minutes().count()), static_cast<unsigned>(time.seconds().count()));
}

}  // namespace scrivanta
