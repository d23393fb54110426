// Contacts as the records of a table: one record a contact, a header in front.
//
// Every field has its column, the numbered ones as many as the contacts need ("手机", "手机2", ...); the last column
// keeps what has no other place. All texts are UTF-8.
#pragma once

#include <array>
#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "contacts/Contact.h"

namespace scrivanta {

class TableShape {
 public:
  // A cell holds so many UTF-16 units; what a field cannot hold goes to the last column, which becomes several.
  explicit TableShape(std::size_t longestCell = std::numeric_limits<std::size_t>::max()) : longestCell_(longestCell) {
    columns_.fill(1);
  }

  // The table is to hold this contact too.
  void Widen(const Contact& contact);
  std::vector<std::string> Header() const;
  // Of a contact that the shape was widened for.
  std::vector<std::string> RecordOf(const Contact& contact) const;

 private:
  // Nothing where the contact fits as it is.
  std::optional<Contact> Fitted(const Contact& contact) const;
  std::vector<std::string> PartsOfRest(const std::string& rest) const;

  std::size_t longestCell_;
  std::array<std::size_t, kContactFields> columns_{};
  std::size_t restColumns_ = 1;
};

// Which column of a table holds what, by its header.
class TableColumns {
 public:
  // Captions as TableShape writes them, and others that people use ("电话", "公司"). A column that nobody knows becomes
  // a note that begins with its caption. Throws ExplainedError where neither a name nor a number is among them.
  explicit TableColumns(const std::vector<std::string>& header);

  // Empty fields are passed over; a record may have fewer fields than the header.
  Contact ContactOf(const std::vector<std::string>& record) const;

 private:
  enum class Kind { kField, kRest, kUnknown };
  struct Column {
    Kind kind = Kind::kUnknown;
    ContactField field = ContactField::kNote;
    std::string caption;
  };

  static Column ColumnOf(std::string_view caption);

  std::vector<Column> columns_;
};

}  // namespace scrivanta
