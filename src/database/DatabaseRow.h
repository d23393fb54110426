// One row of a table: fields of UTF-16, or NULL. It keeps its memory from row to row.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace scrivanta {

class DatabaseRow {
 public:
  void Clear() noexcept {
    text_.clear();
    fields_.clear();
  }

  // A field is appended to text() and then ended.
  std::u16string& text() noexcept { return text_; }
  void EndField() { fields_.push_back({.end = text_.size()}); }
  // The database holds it as a number.
  void EndNumber() { fields_.push_back({.end = text_.size(), .isNumber = true}); }
  void Add(std::u16string_view field) {
    text_ += field;
    EndField();
  }
  void AddNull() { fields_.push_back({.end = text_.size(), .isNull = true}); }

  std::size_t size() const noexcept { return fields_.size(); }
  bool IsNull(std::size_t index) const { return fields_[index].isNull; }
  bool IsNumber(std::size_t index) const { return fields_[index].isNumber; }
  // Empty for NULL.
  std::u16string_view operator[](std::size_t index) const {
    const std::size_t begin = index == 0 ? 0 : fields_[index - 1].end;
    return std::u16string_view(text_).substr(begin, fields_[index].end - begin);
  }

 private:
  struct Field {
    std::size_t end = 0;  // in text_
    bool isNull = false;
    bool isNumber = false;
  };

  std::u16string text_;
  std::vector<Field> fields_;
};

}  // namespace scrivanta
