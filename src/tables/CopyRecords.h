// A table from one format into another.
#pragma once

#include <cstdint>

#include "tables/RecordReader.h"
#include "tables/RecordWriter.h"

namespace scrivanta {

// Each record as a record of the writer. Returns their number. Throws RecordError where a field holds the writer's
// delimiter.
inline std::uint64_t CopyRecords(RecordReader& records, RecordWriter& out) {
  while (records.Next()) {
    out.Write(records.fields(), records.line());
  }
  return records.number();
}

}  // namespace scrivanta
