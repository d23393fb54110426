// The heads of the rich texts that the program writes. Colour 1 is black, 2 red, 3 blue, 4 orange; font 0 is for
// Chinese text (character set 134).
#pragma once

#include <string_view>

namespace scrivanta {

inline constexpr std::string_view kRtfHeader =
    "{\\rtf1\\ansi\\ansicpg936\\deff0\\deflang1033\\deflangfe2052"
    "{\\fonttbl{\\f0\\fnil\\fcharset134 \\'cb\\'ce\\'cc\\'e5;}{\\f1\\froman\\fcharset2 Symbol;}"
    "{\\f2\\fnil\\fcharset134 Arial;}}"
    "{\\colortbl ;\\red0\\green0\\blue0;\\red255\\green0\\blue0;\\red0\\green0\\blue255;\\red255\\green128\\blue0;}"
    "\\viewkind4\\uc1\\pard\\cf1\\lang2052\\f0\\fs21 ";

}  // namespace scrivanta
