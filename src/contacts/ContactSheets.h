// Contacts as the rows of a sheet, the first of them a header.
#pragma once

#include <filesystem>
#include <memory>
#include <utility>

#include "contacts/ContactSink.h"
#include "contacts/ContactTable.h"
#include "contacts/PhoneBook.h"
#include "sheets/SheetFile.h"
#include "text/Bytes.h"

namespace scrivanta {

class SheetContactSink final : public ContactSink {
 public:
  // The shape is one of cells of kLongestSheetCell. Writes the header.
  SheetContactSink(SheetWriter& writer, const TableShape& shape);
  void Write(const Contact& contact) override { writer_.WriteRow(shape_.RecordOf(contact)); }
  void Finish() override {}

 private:
  SheetWriter& writer_;
  TableShape shape_;
};

class SheetContactSource final : public ContactSource {
 public:
  SheetContactSource(std::shared_ptr<const Sheet> sheet, Progress& progress)
      : sheet_(std::move(sheet)), progress_(progress) {}
  std::optional<Contact> Next() override;

 private:
  std::shared_ptr<const Sheet> sheet_;
  Progress& progress_;
  std::size_t next_ = 0;
  std::optional<TableColumns> columns_;
};

// The whole book as a sheet file, by way of the folder.
void WriteSheetFile(const OpenPhoneBook& open, ByteSink& sink, const std::filesystem::path& folder);

}  // namespace scrivanta
