#include "contacts/ContactSheets.h"

#include <array>

#include "text/PlatformFile.h"
#include "text/TemporaryName.h"

namespace scrivanta {

namespace {

constexpr std::size_t kRowsAReport = 256;

class TemporarySheet {
 public:
  explicit TemporarySheet(const std::filesystem::path& folder) : path_(folder / TemporaryName()) {}
  TemporarySheet(const TemporarySheet&) = delete;
  TemporarySheet& operator=(const TemporarySheet&) = delete;
  ~TemporarySheet() { RemoveFile(path_); }

  const std::filesystem::path& path() const noexcept { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace

SheetContactSink::SheetContactSink(const std::filesystem::path& path, const TableShape& shape)
    : shape_(shape), writer_(path, u"电话簿") {
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
  const TemporarySheet sheet(folder);
  SheetContactSink contacts(sheet.path(), SurveyPhoneBook(open, TableShape(kLongestSheetCell)).shape);
  CopyPhoneBook(open, contacts);
  FileSource written(sheet.path());
  std::array<char, 65536> block;
  while (const std::size_t count = written.Read(block)) {
    sink.Write({block.data(), count});
  }
}

}  // namespace scrivanta
