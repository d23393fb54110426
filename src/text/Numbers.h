// Numbers as people write them into text boxes.
#pragma once

#include <string_view>

namespace scrivanta {

// The leading numeric part of a text: blanks, tabs and line breaks in it are passed over; an optional sign, digits, an
// optional fraction and an exponent ("1e3", "1d3") are read as far as they go; 0 when there is none. Infinite where a
// double cannot hold it, never NaN.
double LeadingNumber(std::u16string_view text);

// The same, rounded to a whole number with halves to even and kept within the range of the type.
long long LeadingWholeNumber(std::u16string_view text);

}  // namespace scrivanta
