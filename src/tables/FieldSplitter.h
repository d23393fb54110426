// Takes the lines of records apart: one class for each Separation. RecordReader is what the rest of the program uses.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "tables/RecordFormat.h"
#include "text/Interface.h"
#include "text/Progress.h"

namespace scrivanta {

using Fields = std::vector<std::string_view>;

class FieldSplitter : public Interface {
 public:
  // Appends the fields of a record that begins with this line, number `number` from 1. False: the record goes on in the
  // next line, and there are no fields yet. The fields are views into the line or into the splitter, valid until the
  // next call. Throws RecordError.
  virtual bool Start(std::string_view line, std::uint64_t number, Fields& fields) = 0;
  // The same with the next line and the line end before it.
  virtual bool GoOn(std::string_view, std::string_view, Fields&) { return true; }
  // The column whose field is not at its end, from 1, after a false.
  virtual std::size_t openColumn() const { return 1; }
  // Whether the line is the mark behind the last record.
  virtual bool IsEnd(std::string_view) const { return false; }
};

// Throws RegExpSyntaxError.
std::unique_ptr<FieldSplitter> MakeFieldSplitter(const RecordFormat& format, Progress& progress);

}  // namespace scrivanta
