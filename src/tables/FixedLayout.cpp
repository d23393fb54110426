#include "tables/FixedLayout.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "text/DecimalText.h"
#include "text/LineText.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kBlanks = u" \t\r\uFEFF";
constexpr std::size_t kMostDigits = 9;

constexpr std::pair<WidthUnit, std::u16string_view> kUnits[] = {
    {WidthUnit::kGbkBytes, u"gbk"}, {WidthUnit::kCells, u"cells"}, {WidthUnit::kCharacters, u"characters"}};
constexpr std::pair<FieldAlign, char16_t> kAligns[] = {
    {FieldAlign::kLeft, u'l'}, {FieldAlign::kRight, u'r'}, {FieldAlign::kZeros, u'0'}};

// Takes what stands before the separator away from the text.
std::u16string_view TakePart(std::u16string_view& text, char16_t separator) {
  const std::size_t end = std::min(text.find(separator), text.size());
  const std::u16string_view part = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return part;
}

std::optional<std::size_t> WholeNumber(std::u16string_view text) {
  const bool isDigits = text.find_first_not_of(u"0123456789") == std::u16string_view::npos;
  if (text.empty() || !isDigits || text.size() > kMostDigits) {
    return std::nullopt;
  }
  std::size_t number = 0;
  for (const char16_t digit : text) {
    number = number * 10 + (digit - u'0');
  }
  return number;
}

std::optional<FieldAlign> AlignOf(std::u16string_view letter) {
  for (const auto& [align, its] : kAligns) {
    if (letter == std::u16string_view(&its, 1)) {
      return align;
    }
  }
  return std::nullopt;
}

// False for a line that says nothing known.
bool TakeLayoutLine(std::u16string_view line, FixedLayout& layout) {
  std::u16string_view rest = line;
  const std::u16string_view word = TakePart(rest, u' ');
  rest = Trim(rest, kBlanks);
  if (word == u"unit") {
    const auto* known =
        std::find_if(std::begin(kUnits), std::end(kUnits), [&](const auto& u) { return u.second == rest; });
    if (known == std::end(kUnits)) {
      return false;
    }
    layout.unit = known->first;
    return true;
  }
  if (line == u"ctrl-z") {
    layout.endMark = true;
    return true;
  }
  const auto width = WholeNumber(word);
  const auto align = rest.empty() ? FieldAlign::kLeft : AlignOf(rest);
  if (!width || !align) {
    return false;
  }
  layout.columns.push_back({*width, *align});
  return true;
}

}  // namespace

std::vector<std::size_t> ParseNumbers(std::u16string_view text) {
  std::vector<std::size_t> numbers;
  for (bool isLast = false; !isLast;) {
    const std::size_t comma = text.find(u',');
    isLast = comma == std::u16string_view::npos;
    const auto number = WholeNumber(Trim(text.substr(0, comma), kBlanks));
    if (!number) {
      throw LayoutError("numbers with commas between them are wanted, such as 10,8", u"请输入用逗号隔开的数，如：10,8");
    }
    numbers.push_back(*number);
    text.remove_prefix(isLast ? text.size() : comma + 1);
  }
  return numbers;
}

void SetAligns(FixedLayout& layout, std::u16string_view letters) {
  for (std::size_t i = 0; i < letters.size(); ++i) {
    const auto align = AlignOf(letters.substr(i, 1));
    if (!align) {
      throw LayoutError("each column is aligned by l, r or 0",
                        u"对齐方式每列一个字母：l（左）、r（右）或0（右，补零）");
    }
    if (i < layout.columns.size()) {
      layout.columns[i].align = *align;
    }
  }
}

std::u16string AlignLetters(const FixedLayout& layout) {
  std::u16string letters;
  for (const FixedColumn& column : layout.columns) {
    letters += std::find_if(std::begin(kAligns), std::end(kAligns), [&](const auto& a) {
                 return a.first == column.align;
               })->second;
  }
  return letters;
}

std::u16string LayoutToText(const FixedLayout& layout) {
  std::u16string text;
  for (const auto& [unit, word] : kUnits) {
    if (unit == layout.unit) {
      text.append(u"unit ").append(word).append(u"\r\n");
    }
  }
  if (layout.endMark) {
    text += u"ctrl-z\r\n";
  }
  const std::u16string letters = AlignLetters(layout);
  for (std::size_t i = 0; i < letters.size(); ++i) {
    text += DecimalText(layout.columns[i].width) + u' ' + letters[i] + u"\r\n";
  }
  return text;
}

FixedLayout LayoutFromText(std::u16string_view text) {
  FixedLayout layout;
  for (std::size_t number = 1; !text.empty(); ++number) {
    std::u16string_view line = TakePart(text, u'\n');
    line = Trim(TakePart(line, u'#'), kBlanks);
    if (!line.empty() && !TakeLayoutLine(line, layout)) {
      throw LayoutError(
          "line " + std::to_string(number) + " of the layout is none: \"10 l\", \"unit gbk\" or \"ctrl-z\"",
          u"版式第" + DecimalText(number) + u"行无法识别，应为“10 l”、“unit gbk”或“ctrl-z”");
    }
  }
  if (layout.columns.empty()) {
    throw LayoutError("the layout has no columns", u"版式中没有列");
  }
  return layout;
}

RecordFormat FormatOfLayout(const FixedLayout& layout, Encoding encoding) {
  RecordFormat format{.separation = Separation::kFixedWidths, .unit = layout.unit, .encoding = encoding};
  for (const FixedColumn& column : layout.columns) {
    format.widths.push_back(column.width);
  }
  return format;
}

}  // namespace scrivanta
