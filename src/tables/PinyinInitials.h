// The initial letters of the readings of lines: "重庆 A4" gives "CQA4".
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "hanzi/ReadHanzi.h"
#include "text/Encoding.h"
#include "text/LineReader.h"
#include "text/LineWriter.h"

namespace scrivanta {

enum class InitialsPlace {
  kBefore,  // and a blank behind them; a line that has none stays as it is, here and below
  kBehind,  // and a blank before them
  kColumn,  // behind a tab, on every line
  kOnly,    // in the place of the line
};

struct InitialsOptions {
  InitialsPlace place = InitialsPlace::kBefore;
  bool firstOnly = false;
  bool small = false;  // what stands for a Chinese character; letters of the line stay as they are
  ReadAs readAs = ReadAs::kText;
  Encoding encoding = Encoding::kGbk;
};

// A character of which neither its phrase nor a surname tells with which letter it is read.
struct DoubtfulCharacter {
  std::uint64_t line = 0;      // from 1
  std::uint64_t position = 0;  // of the character in its line, from 1
  char32_t character = 0;
  char16_t letter = 0;    // that was taken
  std::u16string others;  // that are possible too
};

// Letters and digits of the line pass, and so do Chinese characters whose reading is unknown; blanks and punctuation do
// not. What is doubtful is added to the list, unless that is null. Throws FileError, Interrupted.
void AddInitials(LineReader& in, LineWriter& out, const InitialsOptions& options,
                 std::vector<DoubtfulCharacter>* doubtful);

// "3\t2\t重\tZ\tC": line, position, character, the letter taken, the others.
std::u16string DescribeDoubtful(const DoubtfulCharacter& doubtful);

}  // namespace scrivanta
