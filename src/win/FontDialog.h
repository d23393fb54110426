// The platform's dialog for choosing a font.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace scrivanta {

struct FontChoice {
  std::u16string name;
  int tenthsOfPoint = 0;
  COLORREF colour = 0;
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strikeThrough = false;
};

// Nothing when it was cancelled.
std::optional<FontChoice> ShowFontDialog(HWND owner, const FontChoice& preset);

}  // namespace scrivanta
