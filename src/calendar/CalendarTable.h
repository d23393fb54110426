// The calendar's data, made by tools/make_calendar_table.py, which tells the rules. Days are counted from 1970-01-01,
// and day and minute are Beijing's: local mean time to the end of 1928, UTC+8 from then on.
#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace scrivanta {

inline constexpr int kFirstTableYear = 1899;

struct LunarYearRow {
  std::int32_t firstDay;
  std::uint8_t leapMonth;    // the number that it repeats; 0: the year has none
  std::uint16_t longMonths;  // a bit a month, the leap month counted: set for thirty days, else twenty-nine
};
// From kFirstTableYear to the last year.
std::span<const LunarYearRow> LunarYears() noexcept;

// The minutes since the year's beginning in which its 24 terms fall, from 小寒 on.
using TermRow = std::array<std::int32_t, 24>;
std::span<const TermRow> Terms() noexcept;

// A month's first day, or a term's, that lies so near to midnight in the future that official word may name the other.
struct DoubtfulDay {
  std::int32_t day;
  std::int32_t otherDay;
};
std::span<const DoubtfulDay> DoubtfulMonths() noexcept;
std::span<const DoubtfulDay> DoubtfulTerms() noexcept;

}  // namespace scrivanta
