// Hard columns: lines set in columns, such columns taken apart, lines split into a table.
#pragma once

#include <string>

#include "tables/ConversionDialog.h"
#include "tables/NewspaperColumns.h"

namespace scrivanta {

class TableDialogs;

enum class FenLanWay { kColumns, kBack, kSplitAtDelimiter, kSplitAtPattern, kSplitAtPositions };

// What FrmFenLan holds.
struct FenLanChoices {
  FenLanWay way = FenLanWay::kColumns;
  std::u16string count = u"2";
  std::u16string linesPerPage = {};  // empty: even columns on one page
  std::u16string width = {};         // empty: found
  std::u16string gap = u"2";
  bool across = false;
  TooWide tooWide = TooWide::kWrap;
  WidthUnit unit = WidthUnit::kGbkBytes;
  std::u16string splitAt = {};  // the delimiter, the pattern or the positions
};

// Throws, when it runs, ChoiceError, LayoutError, RegExpSyntaxError, RecordError, ColumnError.
Conversion FenLanConversion(FenLanChoices choices);

void mnuFenLan(Workbench& workbench, TableDialogs& dialogs);

}  // namespace scrivanta
