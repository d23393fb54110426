#include "contacts/CardContacts.h"

#include "contacts/ContactCards.h"
#include "text/DecimalText.h"
#include "text/ExplainedError.h"

namespace scrivanta {

std::optional<Contact> CardContactSource::Next() {
  const std::optional<Card> card = reader_.Next();
  if (!card) {
    if (cards_ == 0 && !reader_.linesOutside().empty()) {
      const std::uint64_t line = reader_.linesOutside().front();
      throw ExplainedError("no card was found: line " + std::to_string(line) + " belongs to none",
                           u"没有找到名片：第" + DecimalText(line) + u"行不属于任何名片。");
    }
    for (const std::uint64_t line : reader_.linesOutside()) {
      notUnderstood_.push_back({0, line});
    }
    return std::nullopt;
  }
  ++cards_;
  std::vector<std::uint64_t> lines;
  Contact contact = ContactOfCard(*card, lines);
  for (const std::uint64_t line : lines) {
    notUnderstood_.push_back({cards_, line});
  }
  return contact;
}

void CardContactSink::Write(const Contact& contact) {
  WriteContact(contact, writer_);
}

}  // namespace scrivanta
