// The generated part of the code page, see tools/make_code_page_table.py.
#pragma once

#include <string_view>

namespace scrivanta {

// The characters of the 23,940 two-byte codes: lead bytes 0x81 to 0xFE, for each of them the trail bytes 0x40 to 0x7E
// and 0x80 to 0xFE. All are of the basic plane, and no two are the same.
std::u16string_view TwoByteCharacters() noexcept;

}  // namespace scrivanta
