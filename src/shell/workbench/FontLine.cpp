#include "shell/workbench/FontLine.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "text/LineText.h"
#include "text/Numbers.h"

namespace scrivanta {

namespace {

constexpr double kLargestSize = 1638;  // points, what the control can hold
constexpr std::uint32_t kLargestColour = 0xFFFFFF;

struct Field {
  std::u16string_view label;
  std::u16string (*show)(const FontDescription&);
  void (*apply)(FontDescription&, std::u16string_view);
};

template <bool FontDescription::*Member>
std::u16string ShowFlag(const FontDescription& font) {
  return font.*Member ? u"True" : u"False";
}

template <bool FontDescription::*Member>
void ApplyFlag(FontDescription& font, std::u16string_view value) {
  static constexpr std::array<std::u16string_view, 5> kOn = {u"True", u"true", u"是", u"1", u"-1"};
  static constexpr std::array<std::u16string_view, 4> kOff = {u"False", u"false", u"否", u"0"};
  if (std::ranges::find(kOn, value) != kOn.end()) {
    font.*Member = true;
  } else if (std::ranges::find(kOff, value) != kOff.end()) {
    font.*Member = false;
  }
}

std::u16string ShowNumber(double number) {
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.begin(), digits.end(), number).ptr;
  return {digits.begin(), end};
}

void ApplySize(FontDescription& font, std::u16string_view value) {
  const double size = LeadingNumber(value);
  if (size >= 1 && size <= kLargestSize) {
    font.size = size;
  }
}

void ApplyColour(FontDescription& font, std::u16string_view value) {
  const long long colour = LeadingWholeNumber(value);
  const bool isNumber = !value.empty() && value.front() >= u'0' && value.front() <= u'9';
  if (isNumber && colour <= kLargestColour) {
    font.colour = static_cast<std::uint32_t>(colour);
  }
}

void ApplyName(FontDescription& font, std::u16string_view value) {
  if (!value.empty()) {
    font.name = value;
  }
}

constexpr std::array<Field, 7> kFields = {{
    {u"字体：", [](const FontDescription& font) { return font.name; }, &ApplyName},
    {u"字号：", [](const FontDescription& font) { return ShowNumber(font.size); }, &ApplySize},
    {u"颜色：", [](const FontDescription& font) { return ShowNumber(font.colour); }, &ApplyColour},
    {u"粗体：", &ShowFlag<&FontDescription::bold>, &ApplyFlag<&FontDescription::bold>},
    {u"斜体：", &ShowFlag<&FontDescription::italic>, &ApplyFlag<&FontDescription::italic>},
    {u"下划线：", &ShowFlag<&FontDescription::underline>, &ApplyFlag<&FontDescription::underline>},
    {u"删除线：", &ShowFlag<&FontDescription::strikeThrough>, &ApplyFlag<&FontDescription::strikeThrough>},
}};

}  // namespace

std::u16string FontToLine(const FontDescription& font) {
  std::u16string line;
  for (const Field& field : kFields) {
    line += (line.empty() ? u"" : u"|") + std::u16string(field.label) + field.show(font);
  }
  return line;
}

FontDescription ApplyFontLine(FontDescription font, std::u16string_view line) {
  for (std::size_t position = 0; !line.empty(); ++position) {
    const std::size_t bar = line.find(u'|');
    std::u16string_view value = TrimSpaces(line.substr(0, bar));
    line = bar == std::u16string_view::npos ? std::u16string_view() : line.substr(bar + 1);

    const auto* field =
        std::ranges::find_if(kFields, [value](const Field& known) { return value.starts_with(known.label); });
    if (field != kFields.end()) {
      value.remove_prefix(field->label.size());
    } else if (position < kFields.size()) {
      field = &kFields[position];
    } else {
      break;
    }
    field->apply(font, TrimSpaces(value));
  }
  return font;
}

}  // namespace scrivanta
