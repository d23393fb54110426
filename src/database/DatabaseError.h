// What a database refuses, in both languages of the program.
#pragma once

#include <cstddef>
#include <cstdint>

#include "text/ExplainedError.h"

namespace scrivanta {

class DatabaseError : public ExplainedError {
 public:
  using ExplainedError::ExplainedError;
};

// Why one field, or one row, cannot be taken.
struct RowRefusal {
  std::uint64_t line = 0;  // of the input, from 1
  std::size_t column = 0;  // from 1; 0: not one column alone
  std::u16string columnName = {};
  std::string english = {};
  std::u16string chinese = {};
};

// A row that a table does not take; nothing of its import stays.
class BadRow final : public DatabaseError {
 public:
  explicit BadRow(const RowRefusal& refusal);
  // What another BadRow has said.
  BadRow(std::uint64_t line, std::size_t column, const std::string& english, const std::u16string& chinese)
      : DatabaseError(english, chinese), line_(line), column_(column) {}

  std::uint64_t line() const noexcept { return line_; }
  std::size_t column() const noexcept { return column_; }

 private:
  std::uint64_t line_;
  std::size_t column_;
};

}  // namespace scrivanta
