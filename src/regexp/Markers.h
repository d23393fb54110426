// Texts that stand for something where no user's text is expected to hold them.
#pragma once

#include <string_view>

namespace scrivanta {

// Where a match stood that RegExpMarkerFilter has taken out.
inline constexpr std::u16string_view kSplitMarker = u"dfvjew74ut*&^%$@!~695gjd*&^!~845ut";
// A found text on its way to a replacement that contains it.
inline constexpr std::u16string_view kSwapMarker = u"3BF983B260DE41DFB955C914C1BD2371";

}  // namespace scrivanta
