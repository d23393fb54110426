// Where header and text stand on a page.
#pragma once

#include "printing/PageSetup.h"

namespace scrivanta {

// Of the device, in its pixels.
struct PaperMetrics {
  int dotsPerInchX = 0;
  int dotsPerInchY = 0;
  int paperWidth = 0;
  int paperHeight = 0;
  int offsetX = 0;  // where the part begins that the device can print on
  int offsetY = 0;
  int printableWidth = 0;
  int printableHeight = 0;
};

// In pixels of the device, from the corner of the part that it can print on.
struct PageRect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  int width() const noexcept { return right - left; }
  int height() const noexcept { return bottom - top; }
  friend bool operator==(const PageRect&, const PageRect&) = default;
};

struct PageAreas {
  PageRect header;
  PageRect text;
};

// The header stands within the margins, above the text. Margins that reach beyond what the device can print on, or that
// leave no room worth mentioning, give way on the axis concerned.
PageAreas AreasOf(const PaperMetrics& paper, const PageMargins& margins, int headerHeight);

}  // namespace scrivanta
