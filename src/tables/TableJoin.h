// Two tables joined on their keys. The first is streamed, the second is held in memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "tables/KeyText.h"
#include "tables/RecordReader.h"
#include "text/LineWriter.h"

namespace scrivanta {

enum class JoinKind {
  kInner,  // only rows with a partner
  kLeft,   // all rows of the first table
  kRight,  // all rows of the second
  kFull,   // all rows of both
};

struct JoinOptions {
  JoinKind kind = JoinKind::kInner;
  // Columns by name (see ColumnNames.h), several with commas between them.
  std::u16string key = {};
  std::u16string secondKey = {};      // empty: the same as key
  std::u16string columns = {};        // of the first table that come out; empty: all
  std::u16string secondColumns = {};  // of the second; empty: all but its key
  KeyComparison comparison = {};
  bool hasHeader = false;          // the first record of each table names the columns
  RecordFormat format = {};        // of the first table and of the result
  RecordFormat secondFormat = {};  // in the same encoding
};

// Where the rows go; the lists without a partner are left out where there is no writer. A list begins with the header
// where the table has one.
struct JoinOutputs {
  LineWriter& joined;
  LineWriter* unmatchedFirst = nullptr;
  LineWriter* unmatchedSecond = nullptr;
};

// A table to be joined, at its beginning, and the number of its columns (CountColumns): shorter records are filled up
// to it.
struct JoinedTable {
  RecordReader& records;
  std::size_t columns = 0;
};

// Rows without headers.
struct JoinCounts {
  std::uint64_t joined = 0;
  std::uint64_t unmatchedFirst = 0;
  std::uint64_t unmatchedSecond = 0;
};

// The columns of the first table, then those of the second, in the order of the first; a row with several partners
// comes once with each, in the order of the second. Last what only the second has, in its order, its key in the first's
// key columns. A field that a side lacks is empty. Throws ColumnError, RecordError, Interrupted.
JoinCounts JoinTables(JoinedTable first, JoinedTable second, const JoinOptions& options, const JoinOutputs& outputs,
                      Progress& progress);

}  // namespace scrivanta
