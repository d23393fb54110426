// A contact as a table shows it: texts in named fields, and what has no field of its own.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace scrivanta {

// In the order of the table.
enum class ContactField {
  kName,
  kMobile,
  kHomePhone,
  kWorkPhone,
  kFax,
  kEmail,
  kAddress,
  kOrganisation,  // "company;department"
  kTitle,
  kBirthday,
  kWebSite,
  kNote,
};
inline constexpr std::size_t kContactFields = 12;

struct Contact {
  // Of each field as many as there are, none of them empty; at most one name. UTF-8, LF for line breaks.
  std::array<std::vector<std::string>, kContactFields> values;
  // Lines of a card, LF between them: properties that no field holds, or not with all that they say. Each is written
  // back as it stands here; one whose text stands in a field no more is left out, for that field has been changed. A
  // line that begins with "~" stands for one that is no text, "=XX" in it being a byte, and is never left out.
  std::string rest;

  std::vector<std::string>& operator[](ContactField field) { return values[static_cast<std::size_t>(field)]; }
  const std::vector<std::string>& operator[](ContactField field) const {
    return values[static_cast<std::size_t>(field)];
  }

  // Valid as long as the contact is unchanged.
  std::string_view name() const;
  bool empty() const;
  // Of the fields that hold telephone numbers, fax included.
  std::size_t CountNumbers() const;

  bool operator==(const Contact&) const = default;
};

inline constexpr std::array kNumberFields = {ContactField::kMobile, ContactField::kHomePhone, ContactField::kWorkPhone,
                                             ContactField::kFax};

}  // namespace scrivanta
