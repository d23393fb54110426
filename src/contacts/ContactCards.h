// Contacts out of cards and into cards, so that what was read is written again: what the fields do not hold stands in
// Contact::rest.
#pragma once

#include <cstdint>
#include <vector>

#include "contacts/CardParser.h"
#include "contacts/CardWriter.h"
#include "contacts/Contact.h"

namespace scrivanta {

// Appends to notUnderstood the lines that are no property of a card, and those whose text cannot be read; they are kept
// in the contact's rest nevertheless.
Contact ContactOfCard(const Card& card, std::vector<std::uint64_t>& notUnderstood);

// One whole card.
void WriteContact(const Contact& contact, CardWriter& out);

}  // namespace scrivanta
