#include "contacts/PhoneBook.h"

#include <utility>

#include "contacts/StoredContacts.h"

namespace scrivanta {

namespace {

struct JoinedContacts {
  std::unordered_map<std::size_t, std::size_t> firstOf;  // of every member of a group
  std::unordered_map<std::size_t, Contact> contacts;     // by their first members
};

class JoiningSource final : public ContactSource {
 public:
  JoiningSource(std::unique_ptr<ContactSource> source, std::shared_ptr<const JoinedContacts> joined)
      : source_(std::move(source)), joined_(std::move(joined)) {}

  std::optional<Contact> Next() override {
    while (std::optional<Contact> contact = source_->Next()) {
      const std::size_t index = next_++;
      const auto first = joined_->firstOf.find(index);
      if (first == joined_->firstOf.end()) {
        return contact;
      }
      if (first->second == index) {
        return joined_->contacts.at(index);
      }
    }
    return std::nullopt;
  }

 private:
  std::unique_ptr<ContactSource> source_;
  std::shared_ptr<const JoinedContacts> joined_;
  std::size_t next_ = 0;
};

}  // namespace

void PhoneBookSurvey::Add(const Contact& contact) {
  shape.Widen(contact);
  ++contacts;
  numbers += contact.CountNumbers();
}

PhoneBookSurvey SurveyPhoneBook(const OpenPhoneBook& open, const TableShape& shape) {
  PhoneBookSurvey survey{.shape = shape};
  const std::unique_ptr<ContactSource> source = open();
  while (const std::optional<Contact> contact = source->Next()) {
    survey.Add(*contact);
  }
  return survey;
}

std::vector<DuplicateGroup> FindDuplicates(const OpenPhoneBook& open) {
  DuplicateFinder finder;
  const std::unique_ptr<ContactSource> source = open();
  while (const std::optional<Contact> contact = source->Next()) {
    finder.Add(*contact);
  }
  return finder.Groups();
}

KeptPhoneBook::KeptPhoneBook(ContactSource& source, const std::filesystem::path& temporaryFolder,
                             const TableShape& shape)
    : contacts_(temporaryFolder), survey_{.shape = shape} {
  StoredContactSink sink(contacts_);
  while (const std::optional<Contact> contact = source.Next()) {
    survey_.Add(*contact);
    sink.Write(*contact);
  }
}

OpenPhoneBook KeptPhoneBook::Open(Progress& progress) {
  return [this, &progress] {
    contacts_.Rewind();
    return std::make_unique<StoredContactSource>(contacts_, progress);
  };
}

OpenPhoneBook JoiningDuplicates(const OpenPhoneBook& open, const std::vector<DuplicateGroup>& groups) {
  const auto joined = std::make_shared<JoinedContacts>();
  for (const DuplicateGroup& group : groups) {
    for (const std::size_t member : group.members) {
      joined->firstOf[member] = group.members.front();
    }
  }
  const std::unique_ptr<ContactSource> source = open();
  for (std::size_t i = 0; const std::optional<Contact> contact = source->Next(); ++i) {
    if (const auto first = joined->firstOf.find(i); first != joined->firstOf.end()) {
      const auto [place, isFirst] = joined->contacts.emplace(first->second, *contact);
      if (!isFirst) {
        place->second = Joined(place->second, *contact);
      }
    }
  }
  return [open, joined] { return std::make_unique<JoiningSource>(open(), joined); };
}

void CopyContacts(ContactSource& source, ContactSink& sink) {
  while (const std::optional<Contact> contact = source.Next()) {
    sink.Write(*contact);
  }
  sink.Finish();
}

void CopyPhoneBook(const OpenPhoneBook& open, ContactSink& sink) {
  CopyContacts(*open(), sink);
}

}  // namespace scrivanta
