// Text values of the current user's part of the registry.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace scrivanta {

// The value's text, nothing when key or value is absent or the value is no text. `key` is below the user's root
// ("Software\\...").
std::optional<std::u16string> ReadRegistryText(const std::u16string& key, const std::u16string& name);

// Makes the key when it is absent. Throws std::system_error.
void WriteRegistryText(const std::u16string& key, const std::u16string& name, const std::u16string& value);

// The names of the key's values; none when the key is absent.
std::vector<std::u16string> RegistryValueNames(const std::u16string& key);

// Nothing happens when it is absent. Throws std::system_error.
void DeleteRegistryValue(const std::u16string& key, const std::u16string& name);

}  // namespace scrivanta
