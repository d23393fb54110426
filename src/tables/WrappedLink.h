// The forms in which download programs hide an address: a scheme of their own and Base64 behind it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace scrivanta {

// Unwraps thunder://, thunderxl://, flashget:// and qqdl:// links, also one within another; the scheme in any letter
// case. The text inside is UTF-8, or else GBK. Nothing when the link is none of these, or holds no address.
std::optional<std::u16string> UnwrapLink(std::string_view link);

// Strictly UTF-8, or else GBK, with nothing left over; nothing when the bytes are neither.
std::optional<std::u16string> DecodeLinkText(std::string_view bytes);

}  // namespace scrivanta
