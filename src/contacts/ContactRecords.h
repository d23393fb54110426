// Contacts as the records of a text: a header and one record a contact, with tabs or as comma-separated values.
#pragma once

#include "contacts/ContactSink.h"
#include "contacts/ContactTable.h"
#include "tables/RecordReader.h"
#include "tables/RecordWriter.h"

namespace scrivanta {

enum class RecordForm {
  kTabs,    // line breaks and tabs inside a field as \n and \t, and \ as \\.
  kCommas,  // RFC 4180
};

class RecordContactSink final : public ContactSink {
 public:
  // Writes the header.
  RecordContactSink(ByteSink& sink, RecordForm form, Encoding encoding, const TableShape& shape);
  void Write(const Contact& contact) override;
  void Finish() override { out_.Flush(); }

 private:
  void WriteRecord(const std::vector<std::string>& fields);

  RecordForm form_;
  Encoding encoding_;
  TableShape shape_;
  LineWriter out_;
  RecordWriter records_;
  std::uint64_t number_ = 0;
};

class RecordContactSource final : public ContactSource {
 public:
  RecordContactSource(ByteSource& source, RecordForm form, Encoding encoding, Progress& progress);
  // Records without a text in them are passed over.
  std::optional<Contact> Next() override;

 private:
  bool NextRecord();

  RecordForm form_;
  Encoding encoding_;
  RecordReader records_;
  std::vector<std::string> fields_;
  std::optional<TableColumns> columns_;
};

}  // namespace scrivanta
