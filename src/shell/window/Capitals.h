// Small letters into capitals, one code unit for one: the length of the text and all positions stay.
#pragma once

#include <string>
#include <string_view>

namespace scrivanta {

// Latin, Greek, Cyrillic, the full-width Latin letters and the small Roman numerals; everything else stays.
std::u16string ToCapitals(std::u16string_view text);

}  // namespace scrivanta
