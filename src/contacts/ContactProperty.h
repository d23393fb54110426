// Which field of a contact a property of a card belongs to.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "contacts/CardProperty.h"
#include "contacts/Contact.h"

namespace scrivanta {

// A property that was understood: its text in a field.
struct FieldText {
  ContactField field = ContactField::kNote;
  std::string text = {};
  bool saysItAll = false;  // the field and the text are enough to write the property again
};

// Nothing for one that has no field, or whose text cannot be read. Of names only FN; N needs the whole card.
std::optional<FieldText> FieldTextOf(const CardProperty& property);

// Whether the property can be told again on a line of its own: it is no picture, and its head is a text.
bool CanBeTold(const CardProperty& property);

// Whether a field is there for it, so that its text should have been read.
bool HasField(const CardProperty& property);

// What a property of a field is written with, without its value: "TEL;CELL".
std::string_view HeadOf(ContactField field);
// The parts that a structured property is written with; a single one for the others.
std::vector<std::string> PartsOfField(ContactField field, const std::string& text);

// The name that the parts of N make: Chinese without blanks, family name first; others given name first.
std::string ComposedName(const std::vector<std::string>& parts);
// Whether N, of these parts, holds this name alone, in its first part.
bool IsPlainName(const CardProperty& property, const std::vector<std::string>& parts, std::string_view name);

}  // namespace scrivanta
