#include "printing/PageAreas.h"

#include <algorithm>

namespace scrivanta {

namespace {

constexpr int kHundredthsPerInch = 2540;

struct Span {
  int start = 0;
  int end = 0;
};

int ToPixels(int hundredths, int dotsPerInch) {
  return static_cast<int>(static_cast<long long>(hundredths) * dotsPerInch / kHundredthsPerInch);
}

// Half an inch is the least that is worth printing on.
Span Within(int paper, int before, int after, int offset, int printable, int dotsPerInch) {
  const Span wanted{std::max(before - offset, 0), std::min(paper - after - offset, printable)};
  return wanted.end - wanted.start >= dotsPerInch / 2 ? wanted : Span{0, printable};
}

}  // namespace

PageAreas AreasOf(const PaperMetrics& paper, const PageMargins& margins, int headerHeight) {
  const Span across =
      Within(paper.paperWidth, ToPixels(margins.left, paper.dotsPerInchX), ToPixels(margins.right, paper.dotsPerInchX),
             paper.offsetX, paper.printableWidth, paper.dotsPerInchX);
  const Span down =
      Within(paper.paperHeight, ToPixels(margins.top, paper.dotsPerInchY), ToPixels(margins.bottom, paper.dotsPerInchY),
             paper.offsetY, paper.printableHeight, paper.dotsPerInchY);
  const int textTop = std::min(down.start + headerHeight + headerHeight / 2, down.end);
  return {.header = {across.start, down.start, across.end, std::min(down.start + headerHeight, down.end)},
          .text = {across.start, textTop, across.end, down.end}};
}

}  // namespace scrivanta
