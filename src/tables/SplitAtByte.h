#pragma once

#include <cstring>
#include <string_view>
#include <vector>

namespace scrivanta {

// Appends the parts between the bytes of this value: one more than there are of them. For bytes that are never part of
// another character.
inline void SplitAtByte(std::string_view text, char delimiter, std::vector<std::string_view>& parts) {
  for (;;) {
    const auto* found =
        text.empty() ? nullptr : static_cast<const char*>(std::memchr(text.data(), delimiter, text.size()));
    if (found == nullptr) {
      parts.push_back(text);
      return;
    }
    const auto length = static_cast<std::size_t>(found - text.data());
    parts.push_back(text.substr(0, length));
    text.remove_prefix(length + 1);
  }
}

}  // namespace scrivanta
