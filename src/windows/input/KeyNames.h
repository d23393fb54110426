// Keys by the names that people write: Ctrl+Shift+S, 回车, F5.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scrivanta {

// A key as the system numbers it (a virtual key).
using KeyCode = std::uint16_t;

// The keys of a chord in the order in which they are pressed. Nothing for what is no chord.
std::optional<std::vector<KeyCode>> ParseChord(std::u16string_view text);
std::u16string ChordText(const std::vector<KeyCode>& keys);

// Keys that lie outside the number pad too.
bool IsExtendedKey(KeyCode key);

}  // namespace scrivanta
