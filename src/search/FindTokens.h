// A box of one line cannot hold a line break or a tab: "<回车换行符>" and "<制表符>" stand for them.
#pragma once

#include <string>
#include <string_view>

namespace scrivanta {

inline constexpr std::u16string_view kLineBreakToken = u"<回车换行符>";
inline constexpr std::u16string_view kTabToken = u"<制表符>";

std::u16string TextOfBox(std::u16string_view box);
std::u16string BoxOfText(std::u16string_view text);

}  // namespace scrivanta
