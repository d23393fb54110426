#include "contacts/ContactDuplicates.h"

#include <algorithm>
#include <iterator>
#include <map>

#include "contacts/CardProperty.h"

namespace scrivanta {

namespace {

// The properties in a contact's rest, each with its lines.
std::vector<std::string> PropertiesOfRest(std::string_view rest) {
  std::vector<std::string> properties;
  int depth = 0;  // of cards in the property
  for (std::size_t begin = 0; begin < rest.size();) {
    const std::size_t end = std::min(rest.find('\n', begin), rest.size());
    const std::string_view line = rest.substr(begin, end - begin);
    const bool begins = BeginsKnownProperty(line) || line.starts_with('~') || line.starts_with('#');
    const bool isBegin = EqualIgnoringCase(line, "BEGIN:VCARD");
    if (properties.empty() || (begins && depth == 0 && !isBegin)) {
      properties.emplace_back(line);
    } else {
      properties.back() += '\n';
      properties.back() += line;
    }
    depth += isBegin ? 1 : EqualIgnoringCase(line, "END:VCARD") ? -1 : 0;
    begin = end + 1;
  }
  return properties;
}

bool IsName(std::string_view property) {
  const std::optional<CardProperty> head = ReadPropertyHead(property.substr(0, property.find('\n')));
  return head && (head->name == "N" || head->name == "FN");
}

std::string JoinedRest(const std::string& first, const std::string& second) {
  std::vector<std::string> properties = PropertiesOfRest(first);
  const bool hasName = std::ranges::any_of(properties, IsName);
  for (const std::string& property : PropertiesOfRest(second)) {
    const bool isThere = std::ranges::find(properties, property) != properties.end();
    if (!isThere && !(hasName && IsName(property))) {
      properties.push_back(property);
    }
  }
  std::string joined;
  for (const std::string& property : properties) {
    joined += (joined.empty() ? "" : "\n") + property;
  }
  return joined;
}

bool IsNumberField(std::size_t field) {
  return std::ranges::find(kNumberFields, static_cast<ContactField>(field)) != kNumberFields.end();
}

}  // namespace

std::string NormalisedNumber(std::string_view number) {
  std::string digits;
  std::ranges::copy_if(number, std::back_inserter(digits), [](char c) { return c != ' ' && c != '-'; });
  for (const std::string_view prefix : {"+86", "0086"}) {
    if (digits.size() > prefix.size() && digits.starts_with(prefix)) {
      return digits.substr(prefix.size());
    }
  }
  return digits;
}

void DuplicateFinder::Add(const Contact& contact) {
  const std::size_t index = parents_.size();
  parents_.push_back(index);
  for (const ContactField field : kNumberFields) {
    for (const std::string& number : contact[field]) {
      const std::string normalised = NormalisedNumber(number);
      const auto [place, isNew] = firstOfKey_.emplace(std::string(contact.name()) + '\n' + normalised, index);
      const std::size_t other = RootOf(place->second);
      const std::size_t own = RootOf(index);
      if (!isNew && other != own) {
        parents_[std::max(own, other)] = std::min(own, other);
        shared_.push_back({index, std::string(contact.name()), normalised});
      }
    }
  }
}

std::size_t DuplicateFinder::RootOf(std::size_t contact) {
  while (parents_[contact] != contact) {
    parents_[contact] = parents_[parents_[contact]];
    contact = parents_[contact];
  }
  return contact;
}

std::vector<DuplicateGroup> DuplicateFinder::Groups() {
  std::map<std::size_t, DuplicateGroup> groups;
  for (const SharedKey& shared : shared_) {
    DuplicateGroup& group = groups[RootOf(shared.contact)];
    if (group.members.empty()) {
      group.name = shared.name;
      group.number = shared.number;
      group.members.push_back(RootOf(shared.contact));
    }
  }
  for (std::size_t i = 0; i < parents_.size(); ++i) {
    const std::size_t root = RootOf(i);
    if (const auto found = groups.find(root); found != groups.end() && i != root) {
      found->second.members.push_back(i);
    }
  }
  std::vector<DuplicateGroup> result;
  for (auto& [root, group] : groups) {
    result.push_back(std::move(group));
  }
  return result;
}

Contact Joined(const Contact& first, const Contact& second) {
  Contact joined = first;
  for (std::size_t i = 0; i < kContactFields; ++i) {
    const auto same = [&](const std::string& a, const std::string& b) {
      return IsNumberField(i) ? NormalisedNumber(a) == NormalisedNumber(b) : a == b;
    };
    for (const std::string& text : second.values[i]) {
      std::vector<std::string>& texts = joined.values[i];
      if (std::ranges::none_of(texts, [&](const std::string& other) { return same(other, text); })) {
        texts.push_back(text);
      }
    }
  }
  joined.rest = JoinedRest(first.rest, second.rest);
  return joined;
}

}  // namespace scrivanta
