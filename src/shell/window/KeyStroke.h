// A key with Ctrl and Shift, as a menu shows it: "Ctrl+Shift+S", "F3", "Shift+Delete".
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace scrivanta {

struct KeyStroke {
  bool ctrl = false;
  bool shift = false;
  std::uint16_t code = 0;  // the system's virtual key code: a letter's or figure's is its ASCII capital

  friend auto operator<=>(const KeyStroke&, const KeyStroke&) = default;
};

// Of letters, figures, function keys, Insert, Delete and some with signs ("Ctrl++", "Ctrl+Num-"); nothing for other
// texts and keys.
std::optional<KeyStroke> ParseKeyStroke(std::u16string_view text);
std::u16string KeyStrokeText(const KeyStroke& key);

// Why no command may have the key, as the end of a sentence: it types text, it is an input method's or the edit box's.
// Empty when one may.
std::u16string WhyNoCommandMayHave(const KeyStroke& key);

}  // namespace scrivanta
