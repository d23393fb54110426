// Records of RFC 4180: a field that begins with a quote ends at the next quote that is not doubled, and may hold
// delimiters and line breaks. Read leniently: a quote inside a field that does not begin with one is itself, and so is
// what stands between a closing quote and the next delimiter.
#pragma once

#include <string>

#include "tables/FieldSplitter.h"

namespace scrivanta {

class QuotedFields final : public FieldSplitter {
 public:
  explicit QuotedFields(char delimiter) : delimiter_(delimiter) {}

  bool Start(std::string_view line, std::uint64_t number, Fields& fields) override;
  bool GoOn(std::string_view lineEnd, std::string_view line, Fields& fields) override;
  std::size_t openColumn() const override { return ends_.size() + 1; }

 private:
  bool Take(std::string_view line, Fields& fields);
  std::size_t TakeQuoted(std::string_view line, std::size_t at);

  char delimiter_;
  bool inQuotes_ = false;
  std::string text_;               // of all fields of the record, one behind the other
  std::vector<std::size_t> ends_;  // of the finished ones, in text_
};

}  // namespace scrivanta
