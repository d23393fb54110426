#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "contacts/ContactCards.h"
#include "contacts/ContactProperty.h"
#include "contacts/KeptLines.h"

namespace scrivanta {

namespace {

// A property of Contact::rest.
struct Kept {
  CardProperty property;
  std::optional<FieldText> field;
  bool isMarked = false;
  bool isWritten = false;
};

struct KeptProperties {
  std::vector<Kept> properties;
  std::vector<std::string> strayLines;
};

KeptProperties ReadRest(std::string_view rest) {
  KeptProperties kept;
  std::vector<std::uint64_t> marked;
  if (rest.empty()) {
    return kept;
  }
  CardParser parser;
  std::uint64_t number = 0;
  parser.TakeLine("BEGIN:VCARD", ++number);
  for (std::size_t begin = 0; begin <= rest.size();) {
    const std::size_t end = std::min(rest.find('\n', begin), rest.size());
    const std::string_view line = rest.substr(begin, end - begin);
    parser.TakeLine(LineOfKept(line), ++number);
    if (IsMarked(line)) {
      marked.push_back(number);
    }
    begin = end + 1;
  }
  parser.End();
  while (std::optional<Card> card = parser.Next()) {
    for (CardProperty& property : card->properties) {
      const bool isMarked = std::ranges::binary_search(marked, property.line);
      std::optional<FieldText> field = isMarked ? std::nullopt : FieldTextOf(property);
      kept.properties.push_back({std::move(property), std::move(field), isMarked});
    }
    for (const CardProperty& stray : card->strayLines) {
      kept.strayLines.push_back(stray.raw.starts_with('#') ? stray.raw : "#" + stray.raw);
    }
  }
  return kept;
}

class ContactWriter {
 public:
  ContactWriter(const Contact& contact, CardWriter& out)
      : contact_(contact), out_(out), kept_(ReadRest(contact.rest)) {}

  void Write() {
    out_.Begin();
    WriteName();
    for (std::size_t i = 1; i < kContactFields; ++i) {
      const auto field = static_cast<ContactField>(i);
      for (const std::string& text : contact_[field]) {
        WriteField(field, text);
      }
    }
    for (Kept& kept : kept_.properties) {
      WriteOther(kept);
    }
    for (const std::string& line : kept_.strayLines) {
      out_.WriteLine(line);
    }
    out_.End();
  }

 private:
  // N and FN as they were while the name is what they make; else from the name.
  void WriteName() {
    const std::string name(contact_.name());
    Kept* structured = FindKept([](const Kept& kept) {
      return kept.property.name == "N" && !kept.isMarked && CanBeTold(kept.property) && PartsOf(kept.property);
    });
    firstName_ = FindKept([](const Kept& kept) { return kept.field && kept.field->field == ContactField::kName; });
    Kept* formatted = firstName_ != nullptr && firstName_->field->text == name ? firstName_ : nullptr;
    const bool isUnchanged =
        structured != nullptr && (formatted != nullptr || ComposedName(*PartsOf(structured->property)) == name);
    if (isUnchanged) {
      WriteParts(*structured);
    } else {
      out_.WriteText("N", {name, "", "", "", ""});
    }
    if (formatted != nullptr) {
      WriteParts(*formatted);
    } else if (!name.empty()) {
      out_.WriteText("FN", {name});
    }
    if (structured != nullptr) {
      structured->isWritten = true;
    }
  }

  void WriteField(ContactField field, const std::string& text) {
    Kept* kept = FindKept([&](const Kept& candidate) {
      return !candidate.isWritten && candidate.field && candidate.field->field == field &&
             candidate.field->text == text;
    });
    if (kept != nullptr) {
      WriteParts(*kept);
    } else {
      out_.WriteText(std::string(HeadOf(field)), PartsOfField(field, text));
    }
  }

  // What stands in no field: a property whose text was in one has been changed there.
  void WriteOther(Kept& kept) {
    if (kept.isWritten) {
      return;
    }
    if (!kept.field) {
      out_.WriteAsItStood(kept.property);
    } else if (kept.field->text.empty() || (kept.field->field == ContactField::kName && &kept != firstName_)) {
      WriteParts(kept);
    }
  }

  void WriteParts(Kept& kept) {
    kept.isWritten = true;
    const bool hasParts = kept.property.name == "N" || kept.property.name == "ADR" || kept.property.name == "ORG";
    out_.WriteText(kept.property.HeadWithoutEncoding(),
                   hasParts ? *PartsOf(kept.property) : std::vector{*TextOf(kept.property)});
  }

  template <typename Predicate>
  Kept* FindKept(Predicate predicate) {
    const auto found = std::ranges::find_if(kept_.properties, predicate);
    return found == kept_.properties.end() ? nullptr : &*found;
  }

  const Contact& contact_;
  CardWriter& out_;
  KeptProperties kept_;
  Kept* firstName_ = nullptr;  // the FN that the name was taken from
};

}  // namespace

void WriteContact(const Contact& contact, CardWriter& out) {
  ContactWriter(contact, out).Write();
}

}  // namespace scrivanta
