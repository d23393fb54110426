// The heads of the rich texts that the program writes. In all of them font 0 is for Chinese text (character set 134),
// colour 1 is black and colour 2 red.
#pragma once

#include <string_view>

namespace scrivanta {

// In one line; colour 3 is blue, colour 4 orange.
inline constexpr std::string_view kRtfHeader =
    "{\\rtf1\\ansi\\ansicpg936\\deff0\\deflang1033\\deflangfe2052"
    "{\\fonttbl{\\f0\\fnil\\fcharset134 \\'cb\\'ce\\'cc\\'e5;}{\\f1\\froman\\fcharset2 Symbol;}"
    "{\\f2\\fnil\\fcharset134 Arial;}}"
    "{\\colortbl ;\\red0\\green0\\blue0;\\red255\\green0\\blue0;\\red0\\green0\\blue255;\\red255\\green128\\blue0;}"
    "\\viewkind4\\uc1\\pard\\cf1\\lang2052\\f0\\fs21 ";

// The same line by line, for a file.
inline constexpr std::string_view kHighlightHeader =
    "{\\rtf1\\ansi\\ansicpg936\\deff0\\deflang1033\\deflangfe2052\r\n"
    "{\\fonttbl{\\f0\\fnil\\fcharset134 \\'cb\\'ce\\'cc\\'e5;}\r\n"
    "{\\f1\\froman\\fcharset2 Symbol;}\r\n"
    "{\\f2\\fnil\\fcharset134 Arial;}}\r\n"
    "{\\colortbl ;\\red0\\green0\\blue0;\r\n"
    "\\red255\\green0\\blue0;\r\n"
    "\\red0\\green0\\blue255;\r\n"
    "\\red255\\green128\\blue0;}\r\n"
    "\\viewkind4\\uc1\\pard\\cf1\\lang2052\\f0\\fs21 \r\n";

// Colour 3 is green, colour 4 blue.
inline constexpr std::string_view kFindAllHeader =
    "{\\rtf1\\ansi\\ansicpg936\\deff0\\deflang1033\\deflangfe2052\r\n"
    "{\\fonttbl{\\f0\\fnil\\fcharset134 MS Sans Serif;}}\r\n"
    "{\\colortbl ;\\red0\\green0\\blue0;\\red255\\green0\\blue0;\\red0\\green128\\blue0;\\red0\\green0\\blue255;}\r\n"
    "\\viewkind4\\uc1\\pard\\cf1\\lang2052\\f0\\fs21 \r\n";

}  // namespace scrivanta
