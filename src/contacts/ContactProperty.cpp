#include "contacts/ContactProperty.h"

#include <algorithm>
#include <array>

#include "contacts/KeptLines.h"

namespace scrivanta {

namespace {

constexpr std::array<std::string_view, kContactFields> kHeads = {"FN",           "TEL;CELL",   "TEL;HOME", "TEL;WORK",
                                                                 "TEL;WORK;FAX", "EMAIL;HOME", "ADR;HOME", "ORG",
                                                                 "TITLE",        "BDAY",       "URL",      "NOTE"};

constexpr std::size_t kAddressParts = 7;
constexpr std::size_t kStreet = 2;
// From the country down to the post office box, as an address is written in Chinese; the postal code last.
constexpr std::array<std::size_t, kAddressParts> kAddressOrder = {6, 4, 3, 2, 1, 0, 5};

// The types of a property, in capitals.
std::vector<std::string> TypesOf(const CardProperty& property) {
  std::vector<std::string> types;
  for (const CardParameter& parameter : property.parameters) {
    if (parameter.name.empty() || parameter.name == "TYPE") {
      types.push_back(InCapitals(parameter.value));
    }
  }
  return types;
}

ContactField FieldOfNumber(const CardProperty& property) {
  const std::vector<std::string> types = TypesOf(property);
  const auto has = [&](std::string_view type) { return std::ranges::find(types, type) != types.end(); };
  if (has("FAX")) {
    return ContactField::kFax;
  }
  if (has("CELL") || !(has("WORK") || has("HOME"))) {
    return ContactField::kMobile;
  }
  return has("WORK") ? ContactField::kWorkPhone : ContactField::kHomePhone;
}

std::optional<ContactField> FieldOf(const CardProperty& property) {
  if (property.name == "TEL") {
    return FieldOfNumber(property);
  }
  for (std::size_t i = 0; i < kHeads.size(); ++i) {
    if (kHeads[i].substr(0, kHeads[i].find(';')) == property.name) {
      return static_cast<ContactField>(i);
    }
  }
  return std::nullopt;
}

// Whether nothing but the types of the field's own head is said beside the value.
bool HasHeadOf(const CardProperty& property, ContactField field) {
  CardProperty plain;
  plain.name = property.name;
  plain.group = property.group;
  for (const CardParameter& parameter : property.parameters) {
    const bool isType = parameter.name == "TYPE";
    plain.parameters.push_back({isType ? "" : parameter.name,
                                parameter.name.empty() || isType ? InCapitals(parameter.value) : parameter.value});
  }
  const std::string head = plain.HeadWithoutEncoding();
  return head == HeadOf(field) || (field == ContactField::kFax && head == "TEL;FAX;WORK");
}

bool IsChinese(std::string_view text) {
  // The three bytes of U+2E80 to U+9FFF, and all characters of four.
  return std::ranges::any_of(text, [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return (byte >= 0xE3 && byte <= 0xE9) || byte >= 0xF0;
  });
}

std::string Joined(const std::vector<std::string>& parts, std::string_view separator) {
  std::string joined;
  for (const std::string& part : parts) {
    if (!part.empty()) {
      joined += (joined.empty() ? "" : std::string(separator)) + part;
    }
  }
  return joined;
}

std::string ComposedAddress(const std::vector<std::string>& parts) {
  std::vector<std::string> ordered;
  for (const std::size_t index : kAddressOrder) {
    if (index < parts.size()) {
      ordered.push_back(parts[index]);
    }
  }
  return Joined(ordered, " ");
}

std::optional<FieldText> StructuredText(const CardProperty& property, ContactField field) {
  const std::optional<std::vector<std::string>> parts = PartsOf(property);
  if (!parts) {
    return std::nullopt;
  }
  FieldText result{.field = field};
  if (field == ContactField::kAddress) {
    result.text = ComposedAddress(*parts);
  } else {
    for (std::size_t i = 0; i < parts->size(); ++i) {
      result.text += (i == 0 ? "" : ";") + (*parts)[i];
    }
  }
  result.saysItAll = PartsOfField(field, result.text) == *parts;
  return result;
}

}  // namespace

std::optional<FieldText> FieldTextOf(const CardProperty& property) {
  const std::optional<ContactField> field = FieldOf(property);
  if (!field || !CanBeTold(property)) {
    return std::nullopt;
  }
  std::optional<FieldText> result;
  if (*field == ContactField::kAddress || *field == ContactField::kOrganisation) {
    result = StructuredText(property, *field);
  } else if (std::optional<std::string> text = TextOf(property)) {
    result = {*field, std::move(*text), true};
  }
  if (result) {
    result->saysItAll = result->saysItAll && HasHeadOf(property, *field);
  }
  return result;
}

bool CanBeTold(const CardProperty& property) {
  const std::string head = property.HeadWithoutEncoding();
  return property.encoding != CardEncoding::kBase64 && !property.isNested && CanStandAsKept(head) &&
         std::ranges::count(head, '"') % 2 == 0;
}

bool HasField(const CardProperty& property) {
  return property.name == "N" || FieldOf(property).has_value();
}

std::string_view HeadOf(ContactField field) {
  return kHeads[static_cast<std::size_t>(field)];
}

std::vector<std::string> PartsOfField(ContactField field, const std::string& text) {
  std::vector<std::string> parts;
  if (field == ContactField::kAddress) {
    parts.resize(kAddressParts);
    parts[kStreet] = text;
  } else if (field == ContactField::kOrganisation) {
    std::size_t begin = 0;
    for (std::size_t end = text.find(';'); end != std::string::npos; end = text.find(';', begin)) {
      parts.push_back(text.substr(begin, end - begin));
      begin = end + 1;
    }
    parts.push_back(text.substr(begin));
  } else {
    parts.push_back(text);
  }
  return parts;
}

std::string ComposedName(const std::vector<std::string>& parts) {
  constexpr std::size_t kNameParts = 5;  // family, given, middle, before, behind
  std::vector<std::string> five = parts;
  five.resize(kNameParts);
  const bool isChinese = IsChinese(five[0]) || IsChinese(five[1]);
  return isChinese ? Joined({five[3], five[0], five[2], five[1], five[4]}, "")
                   : Joined({five[3], five[1], five[2], five[0], five[4]}, " ");
}

bool IsPlainName(const CardProperty& property, const std::vector<std::string>& parts, std::string_view name) {
  return parts.front() == name &&
         std::all_of(parts.begin() + 1, parts.end(), [](const std::string& part) { return part.empty(); }) &&
         property.HeadWithoutEncoding() == "N";
}

}  // namespace scrivanta
