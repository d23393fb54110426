// A phone book on its way from one form to another. It is read more than once, never held in memory: first to see what
// there is, then to write it.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

#include "contacts/ContactDuplicates.h"
#include "contacts/ContactSink.h"
#include "contacts/ContactTable.h"

namespace scrivanta {

// Reads the book from its beginning, each time the same.
using OpenPhoneBook = std::function<std::unique_ptr<ContactSource>()>;

struct PhoneBookSurvey {
  TableShape shape;  // of the table that holds all
  std::size_t contacts = 0;
  std::size_t numbers = 0;
  std::vector<DuplicateGroup> duplicates;
};

// The shape is widened for the book.
PhoneBookSurvey SurveyPhoneBook(const OpenPhoneBook& open, const TableShape& shape = TableShape());

// The same book with each group of duplicates as one contact, in the place of its first. Holds the duplicates in
// memory.
OpenPhoneBook JoiningDuplicates(const OpenPhoneBook& open, const std::vector<DuplicateGroup>& groups);

void CopyPhoneBook(const OpenPhoneBook& open, ContactSink& sink);

}  // namespace scrivanta
