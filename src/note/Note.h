// A floating note, and the bytes in which it is kept.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "shell/workbench/FontLine.h"

namespace scrivanta {

inline constexpr int kLeastOpacity = 20;  // percent: less would not be found again
inline constexpr int kMostOpacity = 100;

struct NoteLook {
  // Of the window on the desktop, in twips; where it stands by itself while width is 0.
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  FontDescription font{.name = u"宋体", .size = 10.5};
  std::uint32_t paper = 0x00C8FFFF;  // 0x00BBGGRR
  int opacity = kMostOpacity;
  bool isOpen = true;

  friend bool operator==(const NoteLook&, const NoteLook&) = default;
};

struct Note {
  std::u16string text;
  NoteLook look;

  friend bool operator==(const Note&, const Note&) = default;
};

// UTF-8: lines about the look, an empty one, the text.
std::string BytesOfNote(const Note& note);
// Takes any bytes: what makes no sense in the look stays as it is in a new note, and bytes without the head are all
// text.
Note ReadNote(std::string_view bytes);

// The first line that is not blank, for lists; "空便笺" when there is none.
std::u16string TitleOfNote(std::u16string_view text);

}  // namespace scrivanta
