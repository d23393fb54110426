#include "tables/SplitPositions.h"

#include "tables/FixedLayout.h"

namespace scrivanta {

RecordFormat FormatOfPositions(const std::vector<std::size_t>& positions, WidthUnit unit, Encoding encoding) {
  RecordFormat format{
      .separation = Separation::kFixedWidths, .unit = unit, .lastTakesRest = true, .encoding = encoding};
  std::size_t before = 0;
  for (const std::size_t position : positions) {
    if (position <= before) {
      throw LayoutError("the positions must rise, each from 1", u"拆分位置应从小到大，并且不小于1");
    }
    format.widths.push_back(position - before);
    before = position;
  }
  return format;
}

}  // namespace scrivanta
