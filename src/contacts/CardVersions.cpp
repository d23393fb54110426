#include "contacts/CardVersions.h"

#include <algorithm>
#include <utility>

namespace scrivanta {

namespace {

constexpr std::size_t kPhotoLine = 74;  // bytes

void SplitTypes(CardProperty& property) {
  std::vector<CardParameter> parameters;
  for (CardParameter& parameter : property.parameters) {
    if (parameter.name != "TYPE") {
      parameters.push_back(std::move(parameter));
      continue;
    }
    std::string_view types = parameter.value;
    if (types.size() >= 2 && types.starts_with('"') && types.ends_with('"')) {
      types = types.substr(1, types.size() - 2);
    }
    while (!types.empty()) {
      const std::size_t comma = std::min(types.find(','), types.size());
      parameters.push_back({"", InCapitals(types.substr(0, comma))});
      types.remove_prefix(std::min(types.size(), comma + 1));
    }
  }
  property.parameters = std::move(parameters);
}

void StripScheme(CardProperty& property, std::string_view scheme) {
  if (property.value.size() > scheme.size() &&
      EqualIgnoringCase(std::string_view(property.value).substr(0, scheme.size()), scheme)) {
    property.value.erase(0, scheme.size());
    std::erase_if(property.parameters, [](const CardParameter& parameter) {
      return parameter.name == "VALUE" && EqualIgnoringCase(parameter.value, "uri");
    });
  }
}

// "data:image/jpeg;base64,..." becomes a photo of its own.
bool TakeDataAddress(CardProperty& property) {
  constexpr std::string_view kScheme = "data:image/";
  constexpr std::string_view kMark = ";base64,";
  const std::size_t mark = property.value.find(kMark);
  if (mark == std::string::npos || mark < kScheme.size() ||
      !EqualIgnoringCase(std::string_view(property.value).substr(0, kScheme.size()), kScheme)) {
    return false;
  }
  property.parameters.push_back({"", InCapitals(property.value.substr(kScheme.size(), mark - kScheme.size()))});
  property.value.erase(0, mark + kMark.size());
  property.encoding = CardEncoding::kBase64;
  return true;
}

std::string PhotoLines(const std::string& value) {
  std::string lines;
  for (std::size_t i = 0; i < value.size(); i += kPhotoLine) {
    lines += "\n " + value.substr(i, kPhotoLine);
  }
  return lines;
}

}  // namespace

void MakeCard21(CardProperty& property) {
  SplitTypes(property);
  if (property.name == "TEL") {
    StripScheme(property, "tel:");
  } else if (property.name == "EMAIL") {
    StripScheme(property, "mailto:");
  }
  const bool wasAddress = property.encoding == CardEncoding::kPlain && TakeDataAddress(property);
  if (property.encoding == CardEncoding::kQuotedPrintable || property.isNested) {
    return;
  }
  if (property.encoding == CardEncoding::kPlain) {
    const std::string* charset = property.Find("CHARSET");
    property.raw = property.HeadWithoutEncoding() + (charset == nullptr ? "" : ";CHARSET=" + *charset) + ':';
    property.headSize = property.raw.size();
    property.raw += property.value;
    return;
  }
  const std::string lines = wasAddress ? PhotoLines(property.value) : property.raw.substr(property.headSize);
  property.raw = property.HeadWithoutEncoding() + ";ENCODING=BASE64:";
  property.headSize = property.raw.size();
  property.raw += lines;
}

}  // namespace scrivanta
