// Values of a database as text, and the texts that a column of a kind can take.
#pragma once

#include <string>
#include <string_view>

#include "database/Database.h"

namespace scrivanta {

// The shortest text that reads back as the same number; for a float, as the same float.
void AppendReal(double value, std::u16string& text);
void AppendReal(float value, std::u16string& text);
// "0x" and two hexadecimal digits a byte, and back; false when the text is no such thing.
void AppendHex(std::string_view bytes, std::u16string& text);
bool ParseHex(std::u16string_view text, std::string& bytes);

// What a column of a kind wants, for a message: English and Chinese.
struct KindWords {
  std::string_view english;
  std::u16string_view chinese;
};
KindWords WordsOf(ColumnKind kind);

// Whether a column of the kind can take the text. Dates are yyyy-mm-dd, moments yyyy-mm-dd hh:mm[:ss[.f]], a "T"
// between the two or an offset behind them included.
bool Fits(ColumnKind kind, std::u16string_view text);

}  // namespace scrivanta
