// The type of a column, found in its data. A type is chosen only where every value comes back as the very text that it
// was: "007" and "1.50" are texts, unless all have two digits behind the point; so is a telephone number with its
// zeros.
#pragma once

#include <array>

#include "database/Database.h"

namespace scrivanta {

class TypeFinder {
 public:
  // A value that is not NULL.
  void Look(std::u16string_view text);
  ColumnType Found() const;

 private:
  bool LookAtNumber(std::u16string_view text);

  bool any_ = false;
  bool isInteger_ = true;
  bool isReal_ = true;
  bool isDecimal_ = true;
  bool isDate_ = true;
  bool isDateTime_ = true;
  std::size_t longest_ = 0;      // characters
  std::size_t wholeDigits_ = 0;  // the most before the point
  std::size_t scale_ = 0;        // of all decimals; meaningful once there was one
};

}  // namespace scrivanta
