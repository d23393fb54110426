// The texts of a sheet's values: numbers, dates, escapes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace scrivanta {

// Whether a number format shows a date or a time: by the number that stands for it in every book, or by its code.
bool IsDateFormat(unsigned number);
bool IsDateFormat(std::string_view code);

enum class DateSystem { k1900, k1904 };

// A number as it stands in a sheet; nothing where it is none.
std::optional<double> SheetNumberOf(std::string_view value);
// In as many digits as it needs and without an exponent.
std::string SheetNumberText(double number);
// A day or a moment: "2024-02-29", "2024-02-29 13:05:00", or "13:05:00" for the first day; a number that is no day that
// a sheet can show comes as a number.
std::string SheetDateText(double number, DateSystem system);

// "_x000D_" stands for a character that the file could not hold.
std::string WithoutSheetEscapes(std::string_view text);
// The counterpart: what the form cannot hold, and what would be read as such an escape.
std::string WithSheetEscapes(std::string_view text);

}  // namespace scrivanta
