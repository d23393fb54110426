// Columns as people name them.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tables/RecordReader.h"
#include "text/ExplainedError.h"

namespace scrivanta {

// A name that no column has; both texts say which.
class ColumnError : public ExplainedError {
 public:
  using ExplainedError::ExplainedError;
};

// The columns, from 0, that the names mean: the text of a header, else a number from 1 ("3"), else letters as in sheets
// ("C", "AA"); several with commas between them. A header is taken first where a name could mean both, and a header
// with a comma in it is meant by the whole text. Throws ColumnError, also for a column beyond `count` where that is
// known (not 0).
std::vector<std::size_t> FindColumns(std::u16string_view names, std::span<const std::u16string> headers,
                                     std::size_t count);

// The fields of the record as texts: the headers of its table.
std::vector<std::u16string> HeadersOf(const RecordReader& record, Encoding encoding);

}  // namespace scrivanta
