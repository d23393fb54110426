// Contacts as the rows of a sheet, the first of them a header.
#pragma once

#include <filesystem>
#include <memory>
#include <utility>

#include "contacts/ContactSink.h"
#include "contacts/ContactTable.h"
#include "contacts/PhoneBook.h"
#include "contacts/SheetFile.h"
#include "text/Bytes.h"

namespace scrivanta {

class SheetContactSink final : public ContactSink {
 public:
  // The shape is one of cells of kLongestSheetCell. The file is there, whole, after Finish.
  SheetContactSink(const std::filesystem::path& path, const TableShape& shape);
  void Write(const Contact& contact) override { writer_.WriteRow(shape_.RecordOf(contact)); }
  void Finish() override { writer_.Close(); }

 private:
  TableShape shape_;
  SheetWriter writer_;
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

// The whole book as a sheet file. A sheet can only be written to a path: it is one in the folder, and gone at the end.
void WriteSheetFile(const OpenPhoneBook& open, ByteSink& sink, const std::filesystem::path& folder);

}  // namespace scrivanta
