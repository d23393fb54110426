#include "shell/window/KeyStroke.h"

#include <algorithm>
#include <array>

#include "text/DecimalText.h"

namespace scrivanta {

namespace {

constexpr std::uint16_t kInsert = 0x2D;
constexpr std::uint16_t kDelete = 0x2E;
constexpr std::uint16_t kF1 = 0x70;
constexpr int kFunctionKeys = 12;

struct NamedKey {
  std::uint16_t code;
  std::u16string_view name;
};

constexpr std::array kNamed = {NamedKey{kInsert, u"Insert"}, NamedKey{kDelete, u"Delete"}, NamedKey{0xBB, u"+"},
                               NamedKey{0xBD, u"-"},         NamedKey{0x6B, u"Num+"},      NamedKey{0x6D, u"Num-"},
                               NamedKey{0x60, u"Num0"}};

bool IsFunctionKey(std::uint16_t code) {
  return code >= kF1 && code < kF1 + kFunctionKeys;
}

bool IsFigure(std::uint16_t code) {
  return code >= u'0' && code <= u'9';
}

bool IsLetter(std::uint16_t code) {
  return code >= u'A' && code <= u'Z';
}

// Empty for keys that have none here.
std::u16string NameOf(std::uint16_t code) {
  if (IsLetter(code) || IsFigure(code)) {
    return {static_cast<char16_t>(code)};
  }
  if (IsFunctionKey(code)) {
    return u"F" + DecimalText(code - kF1 + 1);
  }
  const auto* const named = std::ranges::find(kNamed, code, &NamedKey::code);
  return named == kNamed.end() ? std::u16string() : std::u16string(named->name);
}

std::optional<std::uint16_t> CodeOf(std::u16string_view name) {
  if (name.size() == 1 && (IsLetter(name.front()) || IsFigure(name.front()))) {
    return name.front();
  }
  if (const auto* const named = std::ranges::find(kNamed, name, &NamedKey::name); named != kNamed.end()) {
    return named->code;
  }
  for (std::uint16_t code = kF1; IsFunctionKey(code); ++code) {
    if (name.starts_with(u'F') && name == NameOf(code)) {
      return code;
    }
  }
  return std::nullopt;
}

struct Reserved {
  std::u16string_view key;
  std::u16string_view reason;
};

constexpr std::u16string_view kOfInputMethods = u"是输入法的键";
constexpr std::u16string_view kOfEditBox = u"是编辑框自己的键";
constexpr std::u16string_view kOfSystem = u"是系统的键";

constexpr std::array kReserved = {
    Reserved{u"Ctrl+Shift+F", kOfInputMethods},  // simplified and traditional characters
    Reserved{u"Ctrl+Shift+B", kOfInputMethods},  // the keyboard on the screen
    Reserved{u"Ctrl+Shift+M", kOfInputMethods},  // the menu of characters
    Reserved{u"Ctrl+Shift+C", kOfEditBox},
    Reserved{u"Ctrl+Shift+V", kOfEditBox},
    Reserved{u"Ctrl+Shift+Delete", kOfEditBox},
    Reserved{u"Ctrl+Delete", kOfEditBox},
    Reserved{u"Insert", kOfEditBox},
    Reserved{u"Delete", kOfEditBox},
    Reserved{u"F10", kOfSystem},
    Reserved{u"Shift+F10", kOfSystem},
};

}  // namespace

std::optional<KeyStroke> ParseKeyStroke(std::u16string_view text) {
  KeyStroke key;
  const auto take = [&text](std::u16string_view prefix) {
    const bool found = text.starts_with(prefix);
    text.remove_prefix(found ? prefix.size() : 0);
    return found;
  };
  key.ctrl = take(u"Ctrl+");
  key.shift = take(u"Shift+");
  const std::optional<std::uint16_t> code = CodeOf(text);
  if (!code) {
    return std::nullopt;
  }
  key.code = *code;
  return key;
}

std::u16string KeyStrokeText(const KeyStroke& key) {
  return (key.ctrl ? u"Ctrl+" : u"") + std::u16string(key.shift ? u"Shift+" : u"") + NameOf(key.code);
}

std::u16string WhyNoCommandMayHave(const KeyStroke& key) {
  if (NameOf(key.code).empty()) {
    return u"不能用作快捷键，可以用字母、数字、F1 到 F12、Insert 和 Delete";
  }
  const bool types = !IsFunctionKey(key.code) && key.code != kInsert && key.code != kDelete;
  if (!key.ctrl && types) {
    return u"要和 Ctrl 一起按，否则打不出这个字";
  }
  if (key.ctrl && key.shift && IsFigure(key.code)) {
    return std::u16string(kOfInputMethods);  // it chooses one
  }
  const std::u16string text = KeyStrokeText(key);
  const auto* const found = std::ranges::find(kReserved, text, &Reserved::key);
  return found == kReserved.end() ? std::u16string() : std::u16string(found->reason);
}

}  // namespace scrivanta
