#include "tables/KeyText.h"

#include <algorithm>

#include "text/UpperCase.h"

namespace scrivanta {

namespace {

char16_t Narrow(char16_t c) {
  if (c >= u'\uFF01' && c <= u'\uFF5E') {
    return static_cast<char16_t>(c - 0xFEE0);
  }
  return c == u'\u3000' ? u' ' : c;
}

bool IsBlank(char16_t c) {
  return c == u' ' || c == u'\t' || c == u'\u00A0' || c == u'\u3000';
}

}  // namespace

std::string_view KeyText::Of(const RecordReader& record) {
  const bool isExact = !comparison_.ignoreCase && !comparison_.ignoreBlanks && !comparison_.ignoreWidth;
  if (isExact && columns_.size() == 1) {
    return record.Field(columns_.front());
  }
  text_.clear();
  for (const std::size_t column : columns_) {
    const std::size_t begin = text_.size();
    if (isExact) {
      text_.append(record.Field(column));
    } else {
      AppendFolded(record.Field(column));
    }
    // The length tells "a" and "bc" from "ab" and "c".
    text_.append("/").append(std::to_string(text_.size() - begin)).append("/");
  }
  return text_;
}

void KeyText::AppendFolded(std::string_view field) {
  units_.clear();
  DecodeAppend(encoding_, field, units_);
  if (comparison_.ignoreWidth) {
    std::transform(units_.begin(), units_.end(), units_.begin(), Narrow);
  }
  if (comparison_.ignoreBlanks) {
    std::erase_if(units_, IsBlank);
  }
  if (comparison_.ignoreCase) {
    std::transform(units_.begin(), units_.end(), units_.begin(), [](char16_t c) { return UpperCase(c); });
  }
  EncodeAppend(encoding_, units_, text_);
}

}  // namespace scrivanta
