#include "contacts/ContactSheets.h"

namespace scrivanta {

SheetContactSink::SheetContactSink(const std::filesystem::path& path, const TableShape& shape)
    : shape_(shape), writer_(path, u"电话簿") {
  writer_.WriteRow(shape_.Header());
}

std::optional<Contact> SheetContactSource::Next() {
  while (next_ < sheet_->rows.size()) {
    const std::vector<std::string>& cells = sheet_->rows[next_++].cells;
    if (columns_) {
      return columns_->ContactOf(cells);
    }
    columns_.emplace(cells);
  }
  return std::nullopt;
}

}  // namespace scrivanta
