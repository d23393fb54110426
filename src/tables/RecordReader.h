// Records out of bytes, with memory for one record and one block: the reader of every table in the program.
//
// A line ends at CR LF or LF; a final line end does not start a further record. An empty line is a record of one empty
// field. Bytes that are no text, and NUL, are kept as they are.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tables/FieldSplitter.h"
#include "tables/RecordError.h"
#include "tables/RecordFormat.h"
#include "text/Bytes.h"
#include "text/LineReader.h"
#include "text/Progress.h"

namespace scrivanta {

class RecordReader {
 public:
  // A byte-order mark at the front of UTF-8 is passed over. Reports the bytes read to progress. Throws
  // RegExpSyntaxError for a pattern that is none.
  RecordReader(ByteSource& source, const RecordFormat& format, Progress& progress);

  // Moves to the next record; false at the end. Throws RecordError (a quote that is not closed, a quoted record of more
  // than 16 MiB, a character across a border of fixed widths, text behind the last of them), FileError, Interrupted,
  // RegExpTooComplex.
  bool Next();

  // The bytes of the fields, without delimiters and quotes; valid until the next call of Next.
  const std::vector<std::string_view>& fields() const noexcept { return fields_; }
  // The field with this number, from 0; empty where the record has fewer.
  std::string_view Field(std::size_t index) const {
    return index < fields_.size() ? fields_[index] : std::string_view();
  }
  // The record as it stands, without the line end behind it; valid as long as the fields.
  std::string_view raw() const noexcept { return raw_; }
  // Records count from 1; 0 before the first call of Next.
  std::uint64_t number() const noexcept { return number_; }
  // The line in which the record begins, from 1.
  std::uint64_t line() const noexcept { return line_; }

 private:
  LineReader lines_;
  std::unique_ptr<FieldSplitter> splitter_;
  Encoding encoding_;
  std::vector<std::string_view> fields_;
  std::string gathered_;  // a record of several lines
  std::string_view raw_;
  std::uint64_t number_ = 0;
  std::uint64_t line_ = 0;
};

}  // namespace scrivanta
