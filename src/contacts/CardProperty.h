// Electronic cards (vCard 2.1, 3.0 and 4.0) as properties: what stands on one line, or on several that belong together.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scrivanta {

enum class CardEncoding { kPlain, kQuotedPrintable, kBase64 };

// "TYPE=home" or, in 2.1, a bare "HOME", which has no name.
struct CardParameter {
  std::string name;  // in capitals
  std::string value;
};

struct CardProperty {
  std::string raw;           // its lines as they stood, with LF between them
  std::size_t headSize = 0;  // bytes of raw before the value, the colon included
  std::uint64_t line = 0;    // the first of its lines in its file, from 1
  std::string group;         // "item1" of "item1.TEL"
  std::string name;          // in capitals
  std::vector<CardParameter> parameters;
  std::string value;  // the lines joined; still encoded; of kBase64 only the first one that is not empty
  CardEncoding encoding = CardEncoding::kPlain;
  bool isNested = false;  // a whole card stands in it
  bool escapes = false;   // backslashes are those of 3.0 and 4.0

  // The value of the parameter, or null.
  const std::string* Find(std::string_view parameterName) const;
  // Group, name and parameters as they are written in 2.1, without those that tell an encoding.
  std::string HeadWithoutEncoding() const;
};

struct Card {
  std::vector<CardProperty> properties;
  // Lines that are no property of a card, remarks ("# ...") included.
  std::vector<CardProperty> strayLines;
  std::uint64_t line = 0;  // of its BEGIN, from 1
};

// The part of a line before its value: nothing when it has none (no colon). `value` becomes what follows.
std::optional<CardProperty> ReadPropertyHead(std::string_view line);

// Whether the line begins a property that cards are known to have: what ends the lines before it in any case.
bool BeginsKnownProperty(std::string_view line);

// Texts are UTF-8 with LF for line breaks. Nothing where the bytes are no text in the charset that is named, or,
// without one, neither UTF-8 nor GBK. One text, and the parts of a structured one:
std::optional<std::string> TextOf(const CardProperty& property);
std::optional<std::vector<std::string>> PartsOf(const CardProperty& property);

// ASCII letters alone.
std::string InCapitals(std::string_view text);
bool EqualIgnoringCase(std::string_view a, std::string_view b);
std::string_view WithoutBlanksAround(std::string_view text);

}  // namespace scrivanta
