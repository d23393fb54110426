// What is wrong with a record, and where.
#pragma once

#include <cstdint>
#include <string>

#include "text/ExplainedError.h"

namespace scrivanta {

class RecordError : public ExplainedError {
 public:
  // The line is the one in which the record begins; lines and columns count from 1. The reasons are clauses: "the quote
  // is not closed".
  RecordError(std::uint64_t line, std::size_t column, const std::string& english, const std::u16string& chinese);

  std::uint64_t line() const noexcept { return line_; }
  std::size_t column() const noexcept { return column_; }

 private:
  std::uint64_t line_;
  std::size_t column_;
};

}  // namespace scrivanta
