#include <algorithm>

#include "contacts/ContactCards.h"
#include "contacts/ContactProperty.h"
#include "contacts/KeptLines.h"

namespace scrivanta {

namespace {

// The properties of a card that make its name; a further one of them has no field.
struct NameProperties {
  const CardProperty* formatted = nullptr;   // FN
  const CardProperty* structured = nullptr;  // N
  std::string name;
  std::vector<std::string> parts;  // of N
  std::string composed;            // of them
  bool isOnlyFormatted = true;
  bool isOnlyStructured = true;
};

NameProperties FindName(const Card& card) {
  NameProperties found;
  for (const CardProperty& property : card.properties) {
    if (!CanBeTold(property)) {
      continue;
    }
    if (property.name == "FN" && found.formatted != nullptr) {
      found.isOnlyFormatted = false;
    } else if (property.name == "N" && found.structured != nullptr) {
      found.isOnlyStructured = false;
    } else if (property.name == "FN") {
      std::optional<std::string> text = TextOf(property);
      if (text && !text->empty()) {
        found.formatted = &property;
        found.name = std::move(*text);
      }
    } else if (property.name == "N") {
      if (std::optional<std::vector<std::string>> parts = PartsOf(property)) {
        found.structured = &property;
        found.composed = ComposedName(*parts);
        found.parts = std::move(*parts);
      }
    }
  }
  if (found.formatted == nullptr) {
    found.name = found.composed;
  }
  return found;
}

class RestOfCard {
 public:
  void KeepText(const CardProperty& property, const std::vector<std::string>& parts) {
    Append(ReadableProperty(property.HeadWithoutEncoding(), parts));
  }

  void KeepAsItStood(const CardProperty& property) {
    if (property.encoding == CardEncoding::kQuotedPrintable) {
      // A sign at the end would be taken for a soft break.
      const bool endsInSign = property.value.ends_with('=');
      Append(property.raw.substr(0, property.headSize) + property.value + (endsInSign ? "3D" : ""));
      return;
    }
    Append(property.raw);
    if (property.encoding == CardEncoding::kBase64) {
      Append("");
    }
  }

  void Append(std::string_view lines) {
    rest_ += isFirst_ ? "" : "\n";
    isFirst_ = false;
    AppendKeptLines(lines, rest_);
  }

  std::string Take() { return std::move(rest_); }

 private:
  std::string rest_;
  bool isFirst_ = true;
};

void KeepFormattedName(const NameProperties& name, const CardProperty& property, RestOfCard& rest) {
  const bool tellsMoreThanN =
      name.structured != nullptr && name.composed != name.name && !IsPlainName(*name.structured, name.parts, name.name);
  if (tellsMoreThanN || !name.isOnlyFormatted || property.HeadWithoutEncoding() != "FN") {
    rest.KeepText(property, {name.name});
  }
}

// A property with a field whose text can be read. Parts are asked for where they are not the text alone.
void TakeText(const CardProperty& property, FieldText text, Contact& contact, RestOfCard& rest) {
  if (text.text.empty() && text.field == ContactField::kName && text.saysItAll) {
    return;  // the empty name that a nameless card has
  }
  if (text.text.empty() || !text.saysItAll || text.field == ContactField::kName) {
    const bool hasParts = text.field == ContactField::kAddress || text.field == ContactField::kOrganisation;
    rest.KeepText(property, hasParts ? *PartsOf(property) : std::vector{text.text});
  }
  if (!text.text.empty() && text.field != ContactField::kName) {
    contact[text.field].push_back(std::move(text.text));
  }
}

}  // namespace

Contact ContactOfCard(const Card& card, std::vector<std::uint64_t>& notUnderstood) {
  Contact contact;
  RestOfCard rest;
  const NameProperties name = FindName(card);
  if (!name.name.empty()) {
    contact[ContactField::kName].push_back(name.name);
  }
  for (const CardProperty& property : card.properties) {
    if (&property == name.formatted) {
      KeepFormattedName(name, property, rest);
    } else if (&property == name.structured) {
      if (!name.isOnlyStructured || !IsPlainName(property, name.parts, name.name)) {
        rest.KeepText(property, name.parts);
      }
    } else if (std::optional<FieldText> text = FieldTextOf(property)) {
      TakeText(property, std::move(*text), contact, rest);
    } else {
      rest.KeepAsItStood(property);
      if (HasField(property) && property.encoding != CardEncoding::kBase64 && !PartsOf(property)) {
        notUnderstood.push_back(property.line);
      }
    }
  }
  for (const CardProperty& stray : card.strayLines) {
    const bool isRemark = stray.raw.starts_with('#');
    rest.Append(isRemark ? stray.raw : "#" + stray.raw);
    if (!isRemark) {
      notUnderstood.push_back(stray.line);
    }
  }
  contact.rest = rest.Take();
  return contact;
}

}  // namespace scrivanta
