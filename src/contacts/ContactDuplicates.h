// The same person twice in a phone book: contacts of the same name that share a number.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "contacts/Contact.h"

namespace scrivanta {

// Without blanks and hyphens, and without "+86" or "0086" in front.
std::string NormalisedNumber(std::string_view number);

struct DuplicateGroup {
  std::vector<std::size_t> members;  // places of the contacts in their book, from 0, ascending; two or more
  std::string name;
  std::string number;  // one that they share, normalised
};

class DuplicateFinder {
 public:
  // The contacts in the order of their book.
  void Add(const Contact& contact);
  // Each contact belongs to one group at most; in the order of their first members.
  std::vector<DuplicateGroup> Groups();

 private:
  struct SharedKey {
    std::size_t contact;
    std::string name;
    std::string number;
  };

  std::size_t RootOf(std::size_t contact);

  std::vector<std::size_t> parents_;  // of the trees that the groups make; a root is its own
  std::unordered_map<std::string, std::size_t> firstOfKey_;
  std::vector<SharedKey> shared_;
};

// One contact with all that the two have. Of numbers that are the same the first's form is kept, and of names too.
Contact Joined(const Contact& first, const Contact& second);

}  // namespace scrivanta
