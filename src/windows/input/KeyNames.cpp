#include "windows/input/KeyNames.h"

#include <algorithm>
#include <array>

#include "text/DecimalText.h"
#include "text/LineText.h"
#include "text/UpperCase.h"

namespace scrivanta {

namespace {

struct NamedKey {
  std::u16string_view name;
  KeyCode key;
};

// The first name of a key is the one that it is shown by.
constexpr auto kNames = std::to_array<NamedKey>(
    {{u"Ctrl", 0x11},   {u"Control", 0x11},     {u"Shift", 0x10},    {u"Alt", 0x12},     {u"Win", 0x5B},
     {u"Enter", 0x0D},  {u"回车", 0x0D},        {u"Esc", 0x1B},      {u"Tab", 0x09},     {u"Space", 0x20},
     {u"空格", 0x20},   {u"Backspace", 0x08},   {u"退格", 0x08},     {u"Delete", 0x2E},  {u"Del", 0x2E},
     {u"删除", 0x2E},   {u"Insert", 0x2D},      {u"Home", 0x24},     {u"End", 0x23},     {u"PageUp", 0x21},
     {u"上翻页", 0x21}, {u"PageDown", 0x22},    {u"下翻页", 0x22},   {u"Up", 0x26},      {u"上", 0x26},
     {u"Down", 0x28},   {u"下", 0x28},          {u"Left", 0x25},     {u"左", 0x25},      {u"Right", 0x27},
     {u"右", 0x27},     {u"PrintScreen", 0x2C}, {u"CapsLock", 0x14}, {u"NumLock", 0x90}, {u"Menu", 0x5D},
     {u";", 0xBA},      {u"=", 0xBB},           {u",", 0xBC},        {u"-", 0xBD},       {u".", 0xBE},
     {u"/", 0xBF},      {u"`", 0xC0},           {u"[", 0xDB},        {u"\\", 0xDC},      {u"]", 0xDD},
     {u"'", 0xDE}});
constexpr KeyCode kF1 = 0x70;
constexpr int kFunctionKeys = 24;

std::optional<KeyCode> KeyNamed(std::u16string_view name) {
  const std::u16string upper = UpperCase(name);
  if (upper.size() == 1 && ((upper[0] >= u'A' && upper[0] <= u'Z') || IsDigit(upper[0]))) {
    return static_cast<KeyCode>(upper[0]);
  }
  const auto* const found =
      std::ranges::find_if(kNames, [&upper](const NamedKey& named) { return UpperCase(named.name) == upper; });
  if (found != kNames.end()) {
    return found->key;
  }
  for (int number = 1; number <= kFunctionKeys; ++number) {
    if (upper == u"F" + DecimalText(number)) {
      return static_cast<KeyCode>(kF1 + number - 1);
    }
  }
  return std::nullopt;
}

std::u16string NameOf(KeyCode key) {
  const auto* const found = std::ranges::find(kNames, key, &NamedKey::key);
  if (found != kNames.end()) {
    return std::u16string(found->name);
  }
  return key >= kF1 && key < kF1 + kFunctionKeys ? u"F" + DecimalText(key - kF1 + 1)
                                                 : std::u16string(1, static_cast<char16_t>(key));
}

}  // namespace

std::optional<std::vector<KeyCode>> ParseChord(std::u16string_view text) {
  std::vector<KeyCode> keys;
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t end = std::min(text.find(u'+', start), text.size());
    const std::optional<KeyCode> key = KeyNamed(TrimSpaces(text.substr(start, end - start)));
    if (!key) {
      return std::nullopt;
    }
    keys.push_back(*key);
    start = end + 1;
  }
  return keys;
}

std::u16string ChordText(const std::vector<KeyCode>& keys) {
  std::u16string text;
  for (const KeyCode key : keys) {
    text += (text.empty() ? u"" : u"+") + NameOf(key);
  }
  return text;
}

bool IsExtendedKey(KeyCode key) {
  constexpr auto kExtended =
      std::to_array<KeyCode>({0x21, 0x22, 0x23, 0x24, 0x25, 0x26, 0x27, 0x28, 0x2C, 0x2D, 0x2E, 0x5B, 0x5D, 0x90});
  return std::ranges::find(kExtended, key) != kExtended.end();
}

}  // namespace scrivanta
