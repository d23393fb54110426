// Where contacts go, and where they come from: cards, a text table, a sheet.
#pragma once

#include <optional>

#include "contacts/Contact.h"
#include "text/Interface.h"

namespace scrivanta {

class ContactSource : public Interface {
 public:
  // The next contact; nothing at the end. Throws what reading its form throws: FileError, ExplainedError, Interrupted.
  virtual std::optional<Contact> Next() = 0;
};

class ContactSink : public Interface {
 public:
  virtual void Write(const Contact& contact) = 0;
  // To be called at the end of a successful work. Throws FileError, ExplainedError, as Write does.
  virtual void Finish() = 0;
};

}  // namespace scrivanta
