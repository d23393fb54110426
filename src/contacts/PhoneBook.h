// A phone book on its way from one form to another. It is gone through more than once, never held in memory: first to
// see what there is, then to write it.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

#include "contacts/ContactDuplicates.h"
#include "contacts/ContactSink.h"
#include "contacts/ContactTable.h"
#include "text/Progress.h"
#include "text/Spool.h"

namespace scrivanta {

// Reads the book from its beginning, each time the same.
using OpenPhoneBook = std::function<std::unique_ptr<ContactSource>()>;

struct PhoneBookSurvey {
  TableShape shape = TableShape();  // of the table that holds all
  std::size_t contacts = 0;
  std::size_t numbers = 0;

  void Add(const Contact& contact);
};

PhoneBookSurvey SurveyPhoneBook(const OpenPhoneBook& open, const TableShape& shape = TableShape());
std::vector<DuplicateGroup> FindDuplicates(const OpenPhoneBook& open);

// What a source holds, read once: in memory while it is little, in a temporary file beyond that.
class KeptPhoneBook {
 public:
  // The shape is widened for the book.
  KeptPhoneBook(ContactSource& source, const std::filesystem::path& temporaryFolder,
                const TableShape& shape = TableShape());

  const PhoneBookSurvey& survey() const noexcept { return survey_; }
  // One source after the other. The book outlives them.
  OpenPhoneBook Open(Progress& progress);

 private:
  Spool contacts_;
  PhoneBookSurvey survey_;
};

// The same book with each group of duplicates as one contact, in the place of its first. Holds the duplicates in
// memory.
OpenPhoneBook JoiningDuplicates(const OpenPhoneBook& open, const std::vector<DuplicateGroup>& groups);

void CopyContacts(ContactSource& source, ContactSink& sink);
void CopyPhoneBook(const OpenPhoneBook& open, ContactSink& sink);

}  // namespace scrivanta
