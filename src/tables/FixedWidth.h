// Delimited records to records of fixed widths without delimiters, and back.
#pragma once

#include "tables/FixedLayout.h"
#include "tables/RecordReader.h"
#include "tables/RecordWriter.h"
#include "text/ExplainedError.h"
#include "text/LineWriter.h"

namespace scrivanta {

// Fields that do not fit; what() names the first hundred of them with line and column, chinese() the first fifteen.
class FieldsDoNotFit : public ExplainedError {
 public:
  using ExplainedError::ExplainedError;
};

// The longest field of each column, in the unit; all columns left. Reads to the end.
FixedLayout FindLayout(RecordReader& records, const TextWidth& width, WidthUnit unit);

// Writes records of one length, each ended by CR LF; the fields that a record lacks are blanks. Returns their number.
// Throws FieldsDoNotFit, after the last record: what has been written by then is to be thrown away.
std::uint64_t WriteFixedWidth(RecordReader& records, LineWriter& out, const FixedLayout& layout, Encoding encoding);

// The records of the layout, read by its format, into delimited ones: the blanks behind a left field and before a right
// one are taken off, zeros are kept. Returns their number. Throws RecordError.
std::uint64_t ReadFixedWidth(RecordReader& records, RecordWriter& out, const FixedLayout& layout);

}  // namespace scrivanta
