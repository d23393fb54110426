#include "system/folders/Shortcut.h"

#include <algorithm>
#include <array>
#include <utility>

#include "text/DecimalText.h"
#include "text/LineText.h"
#include "text/Numbers.h"
#include "text/UpperCase.h"

namespace scrivanta {

namespace {

constexpr std::uint16_t kKeyMask = 0xFF;
constexpr std::uint16_t kFirstFunctionKey = 0x70;
constexpr int kFunctionKeys = 24;
constexpr std::array<std::pair<std::uint16_t, std::u16string_view>, 3> kHeld = {
    {{0x200, u"Ctrl"}, {0x100, u"Shift"}, {0x400, u"Alt"}}};
constexpr std::array<std::pair<std::uint16_t, std::u16string_view>, 10> kNamedKeys = {{{0x20, u"Space"},
                                                                                       {0x21, u"PageUp"},
                                                                                       {0x22, u"PageDown"},
                                                                                       {0x23, u"End"},
                                                                                       {0x24, u"Home"},
                                                                                       {0x25, u"Left"},
                                                                                       {0x26, u"Up"},
                                                                                       {0x27, u"Right"},
                                                                                       {0x28, u"Down"},
                                                                                       {0x2D, u"Insert"}}};

bool IsLetterOrDigit(char16_t c) {
  return (c >= u'A' && c <= u'Z') || IsDigit(c);
}

std::optional<std::uint16_t> KeyOf(std::u16string_view name) {
  if (name.size() == 1 && IsLetterOrDigit(name.front())) {
    return static_cast<std::uint16_t>(name.front());
  }
  for (int number = 1; number <= kFunctionKeys; ++number) {
    if (name == u"F" + DecimalText(number)) {
      return static_cast<std::uint16_t>(kFirstFunctionKey + number - 1);
    }
  }
  for (const auto& [key, keyName] : kNamedKeys) {
    if (name == UpperCase(keyName)) {
      return key;
    }
  }
  return std::nullopt;
}

std::u16string NameOfKey(std::uint16_t key) {
  if (IsLetterOrDigit(key)) {
    return std::u16string(1, static_cast<char16_t>(key));
  }
  if (key >= kFirstFunctionKey && key < kFirstFunctionKey + kFunctionKeys) {
    return u"F" + DecimalText(key - kFirstFunctionKey + 1);
  }
  for (const auto& [named, name] : kNamedKeys) {
    if (named == key) {
      return std::u16string(name);
    }
  }
  return u"键" + DecimalText(key);
}

}  // namespace

std::u16string HotKeyText(std::uint16_t hotKey) {
  std::u16string text;
  if ((hotKey & kKeyMask) == 0) {
    return text;
  }
  for (const auto& [bit, name] : kHeld) {
    if ((hotKey & bit) != 0) {
      text.append(name).append(u"+");
    }
  }
  return text + NameOfKey(hotKey & kKeyMask);
}

std::optional<std::uint16_t> ParseHotKey(std::u16string_view text) {
  const std::u16string upper = UpperCase(TrimSpaces(text));
  std::u16string_view rest = upper;
  if (rest.empty()) {
    return std::uint16_t{0};
  }
  unsigned hotKey = 0;
  for (std::size_t plus = rest.find(u'+'); plus != rest.npos; plus = rest.find(u'+')) {
    const std::u16string_view name = TrimSpaces(rest.substr(0, plus));
    const auto* const held =
        std::ranges::find_if(kHeld, [name](const auto& entry) { return UpperCase(entry.second) == name; });
    if (held == kHeld.end()) {
      return std::nullopt;
    }
    hotKey |= held->first;
    rest.remove_prefix(plus + 1);
  }
  const std::optional<std::uint16_t> key = KeyOf(TrimSpaces(rest));
  return key ? std::optional(static_cast<std::uint16_t>(hotKey | *key)) : std::nullopt;
}

std::u16string IconText(const Shortcut& shortcut) {
  return shortcut.iconIndex == 0 ? shortcut.iconFile : shortcut.iconFile + u"," + DecimalText(shortcut.iconIndex);
}

void SetIconText(Shortcut& shortcut, std::u16string_view text) {
  const std::size_t comma = text.rfind(u',');
  const std::u16string_view number = comma == text.npos ? text.substr(0, 0) : TrimSpaces(text.substr(comma + 1));
  const bool hasNumber = !number.empty() && number.find_first_not_of(u"-0123456789") == number.npos;
  shortcut.iconFile = TrimSpaces(hasNumber ? text.substr(0, comma) : text);
  shortcut.iconIndex = hasNumber ? static_cast<int>(LeadingWholeNumber(number)) : 0;
}

}  // namespace scrivanta
