// A font as one line that the user reads and edits: "字体：宋体|字号：10.5|颜色：0|粗体：False|...".
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace scrivanta {

struct FontDescription {
  std::u16string name;
  double size = 0;           // in points
  std::uint32_t colour = 0;  // red + 256 * green + 65536 * blue
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strikeThrough = false;

  friend bool operator==(const FontDescription&, const FontDescription&) = default;
};

std::u16string FontToLine(const FontDescription& font);

// The font with what the line says applied: its fields may stand in any order, with or without their labels when they
// stand in the usual one, and what is missing or makes no sense stays as it is.
FontDescription ApplyFontLine(FontDescription font, std::u16string_view line);

}  // namespace scrivanta
