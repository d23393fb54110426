// What of a record is compared when tables are joined.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tables/RecordReader.h"

namespace scrivanta {

struct KeyComparison {
  bool ignoreCase = false;
  bool ignoreBlanks = false;  // wherever they stand: spaces, tabs, no-break and full-width spaces
  bool ignoreWidth = false;   // full-width letters, digits and signs are their ASCII ones
};

class KeyText {
 public:
  // The columns count from 0.
  KeyText(std::vector<std::size_t> columns, KeyComparison comparison, Encoding encoding)
      : columns_(std::move(columns)), comparison_(comparison), encoding_(encoding) {}

  // Equal for keys that are taken as equal. Valid until the next call, or until the record's reader goes on.
  std::string_view Of(const RecordReader& record);

  const std::vector<std::size_t>& columns() const noexcept { return columns_; }

 private:
  void AppendFolded(std::string_view field);

  std::vector<std::size_t> columns_;
  KeyComparison comparison_;
  Encoding encoding_;
  std::string text_;
  std::u16string units_;
};

}  // namespace scrivanta
