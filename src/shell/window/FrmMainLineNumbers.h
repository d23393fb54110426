// The numbers of the lines beside the edit box.
#pragma once

#include <windows.h>

#include "shell/history/LineBreakIndex.h"

namespace scrivanta {

class Colours;

class FrmMainLineNumbers {
 public:
  void Create(HWND parent);
  HWND window() const noexcept { return window_; }
  void Show(bool shown);

  // In pixels: room for the greatest number in the size the text is shown in; 0 while no numbers are shown.
  int Width(HWND box, const LineBreakIndex& breaks) const;
  // To be called when the box has been drawn: it may have been scrolled. True when there is another number of figures.
  bool Follow(HWND box, const LineBreakIndex& breaks);
  void Draw(const DRAWITEMSTRUCT& item, HWND box, const LineBreakIndex& breaks, Colours& colours) const;

 private:
  // What the numbers depend on.
  struct Place {
    LONG first = -1;  // character at the upper edge
    LONG y = 0;
    std::size_t lines = 0;
    int figureHeight = 0;
    bool operator==(const Place&) const = default;
  };

  HWND window_ = nullptr;
  bool isShown_ = false;
  Place drawn_;
};

}  // namespace scrivanta
