#pragma once

#include <cstddef>
#include <string>

namespace scrivanta {

// A number in decimal digits.
std::u16string DecimalText(std::size_t number);

}  // namespace scrivanta
