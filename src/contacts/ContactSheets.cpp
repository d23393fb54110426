#include "contacts/ContactSheets.h"

namespace scrivanta {

namespace {

constexpr std::size_t kRowsAReport = 256;

}  // namespace

SheetContactSink::SheetContactSink(SheetWriter& writer, const TableShape& shape) : writer_(writer), shape_(shape) {
  writer_.WriteRow(shape_.Header());
}

std::optional<Contact> SheetContactSource::Next() {
  while (next_ < sheet_->rows.size()) {
    if (next_ % kRowsAReport == 0) {
      progress_.Report(next_, sheet_->rows.size());
    }
    const std::vector<std::string>& cells = sheet_->rows[next_++].cells;
    if (columns_) {
      return columns_->ContactOf(cells);
    }
    columns_.emplace(cells);
  }
  return std::nullopt;
}

void WriteSheetFile(const OpenPhoneBook& open, ByteSink& sink, const std::filesystem::path& folder) {
  WriteSheetTo(sink, folder, {.name = u"电话簿"}, [&open](SheetWriter& writer) {
    SheetContactSink contacts(writer, SurveyPhoneBook(open, TableShape(kLongestSheetCell)).shape);
    CopyPhoneBook(open, contacts);
  });
}

}  // namespace scrivanta
