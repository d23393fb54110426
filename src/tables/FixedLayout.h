// How records of fixed widths are laid out, and that as a text.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tables/RecordFormat.h"
#include "tables/TextWidth.h"
#include "text/ExplainedError.h"

namespace scrivanta {

enum class FieldAlign {
  kLeft,   // blanks behind the field
  kRight,  // blanks before it
  kZeros,  // zeros before it, behind a sign
};

struct FixedColumn {
  std::size_t width = 0;
  FieldAlign align = FieldAlign::kLeft;

  friend bool operator==(const FixedColumn&, const FixedColumn&) = default;
};

struct FixedLayout {
  std::vector<FixedColumn> columns = {};
  WidthUnit unit = WidthUnit::kGbkBytes;
  bool endMark = false;  // Ctrl-Z behind the last record

  friend bool operator==(const FixedLayout&, const FixedLayout&) = default;
};

// A layout that cannot be understood.
class LayoutError : public ExplainedError {
 public:
  using ExplainedError::ExplainedError;
};

// Numbers with commas between them, blanks around them allowed: "10, 8". Throws LayoutError.
std::vector<std::size_t> ParseNumbers(std::u16string_view text);
// One letter a column: l (left), r (right), 0 (zeros). Columns beyond the letters are left. Throws LayoutError.
void SetAligns(FixedLayout& layout, std::u16string_view letters);
// The letters of all columns.
std::u16string AlignLetters(const FixedLayout& layout);

// One line a column, the width and the letter ("10 l"), below "unit gbk|cells|characters" and, for an end mark,
// "ctrl-z". Empty lines and what follows a "#" say nothing.
std::u16string LayoutToText(const FixedLayout& layout);
// Throws LayoutError with the line.
FixedLayout LayoutFromText(std::u16string_view text);

// The format by which records of the layout are read.
RecordFormat FormatOfLayout(const FixedLayout& layout, Encoding encoding);

}  // namespace scrivanta
