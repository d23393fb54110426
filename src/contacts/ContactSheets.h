// Contacts as the rows of a sheet, the first of them a header.
#pragma once

#include <filesystem>
#include <memory>
#include <utility>

#include "contacts/ContactSink.h"
#include "contacts/ContactTable.h"
#include "contacts/SheetFile.h"

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
  explicit SheetContactSource(std::shared_ptr<const Sheet> sheet) : sheet_(std::move(sheet)) {}
  std::optional<Contact> Next() override;

 private:
  std::shared_ptr<const Sheet> sheet_;
  std::size_t next_ = 0;
  std::optional<TableColumns> columns_;
};

}  // namespace scrivanta
