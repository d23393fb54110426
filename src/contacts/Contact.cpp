#include "contacts/Contact.h"

#include <algorithm>

namespace scrivanta {

std::string_view Contact::name() const {
  const std::vector<std::string>& names = (*this)[ContactField::kName];
  return names.empty() ? std::string_view() : names.front();
}

bool Contact::empty() const {
  return rest.empty() && std::ranges::all_of(values, [](const auto& texts) { return texts.empty(); });
}

std::size_t Contact::CountNumbers() const {
  std::size_t count = 0;
  for (const ContactField field : kNumberFields) {
    count += (*this)[field].size();
  }
  return count;
}

}  // namespace scrivanta
