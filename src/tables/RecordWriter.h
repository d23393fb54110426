// Records into bytes, the counterpart of RecordReader: what it writes is read back with the same fields.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "tables/RecordFormat.h"
#include "text/LineWriter.h"

namespace scrivanta {

// Writes one field behind another. A pattern and fixed widths cannot be written so: records read by them are written
// with tabs.
class FieldEncoder {
 public:
  explicit FieldEncoder(const RecordFormat& format);

  // Appends the field, in quotes where they are needed. False, with nothing appended, where the format has no way to
  // hold it: a delimiter or a line break in it. An empty field between blanks is not seen again when it is read.
  bool Append(std::string_view field, std::string& record) const;
  const std::string& delimiter() const noexcept { return delimiter_; }

 private:
  bool HoldsDelimiter(std::string_view field) const;

  Encoding encoding_;
  Separation separation_;
  std::string delimiter_;
};

class RecordWriter {
 public:
  // The writer is flushed by its owner.
  RecordWriter(LineWriter& out, const RecordFormat& format) : out_(out), encoder_(format) {}

  // Each record ends with CR LF. The line, from 1, is the one of the input that an error names. Throws RecordError for
  // a field that the format cannot hold; nothing of the record is then written.
  void Write(std::span<const std::string_view> fields, std::uint64_t line);

 private:
  LineWriter& out_;
  FieldEncoder encoder_;
  std::string record_;
};

}  // namespace scrivanta
