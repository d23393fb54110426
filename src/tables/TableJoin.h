// Two tables joined on their keys. Memory grows with the smaller of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
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
  // Of rows of the second table beside the keys of the first, when the first is the smaller one. Rows of one key are
  // held together whatever they take.
  std::size_t heldBytes = 128 * 1024 * 1024;
};

// Where the rows go; the lists without a partner are left out where there is no writer. A list begins with the header
// where the table has one.
struct JoinOutputs {
  LineWriter& joined;
  LineWriter* unmatchedFirst = nullptr;
  LineWriter* unmatchedSecond = nullptr;
};

// Opens a table at its beginning, again and again; what was opened before is not read any more.
using OpenTable = std::function<RecordReader()>;

// Rows without headers.
struct JoinCounts {
  std::uint64_t joined = 0;
  std::uint64_t unmatchedFirst = 0;
  std::uint64_t unmatchedSecond = 0;
};

// The columns of the first table, then those of the second, in the order of the first; a row with several partners
// comes once with each, in the order of the second. Last what only the second has, in its order, its key in the first's
// key columns. A field that a side lacks is empty, and shorter records are filled up. Throws ColumnError, RecordError,
// Interrupted.
JoinCounts JoinTables(const OpenTable& openFirst, const OpenTable& openSecond, const JoinOptions& options,
                      const JoinOutputs& outputs, Progress& progress);

}  // namespace scrivanta
