#include "database/SheetSource.h"

#include <algorithm>

#include "text/Encoding.h"

namespace scrivanta {

bool SheetSource::Next(DatabaseRow& row) {
  if (next_ == sheet_.rows.size()) {
    return false;
  }
  const std::vector<std::string>& cells = sheet_.rows[next_++].cells;
  row.Clear();
  for (const std::string& cell : cells) {
    DecodeAppend(Encoding::kUtf8, cell, row.text());
    row.EndField();
  }
  // Empty cells at the end of a row are not in the file.
  for (std::size_t i = cells.size(); i < sheet_.rows.front().cells.size(); ++i) {
    row.EndField();
  }
  return true;
}

}  // namespace scrivanta
