// The data of a registry value as people read and write it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "system/registry/RegistryKeys.h"

namespace scrivanta {

// "REG_SZ"; "REG_0x20" for a type that has no name.
std::u16string RegistryTypeName(RegistryType type);
// The types that a user can choose for a new value.
const std::vector<RegistryType>& EditableRegistryTypes();

// A text of any type without its closing NULs; the texts of REG_MULTI_SZ.
std::u16string TextOfRegistryData(std::string_view bytes);
std::vector<std::u16string> TextsOfRegistryData(std::string_view bytes);
RegistryValue TextValue(std::u16string_view name, std::u16string_view text, RegistryType type = RegistryType::kText);

// On one line, for lists: "0x0000000a (10)", "01 02 ff", the texts of REG_MULTI_SZ with "；" between.
std::u16string ShowRegistryData(const RegistryValue& value);
// As it is edited: lines for REG_MULTI_SZ, hexadecimal bytes for what has no text.
std::u16string EditRegistryData(const RegistryValue& value);
// The other way; numbers are decimal, or hexadecimal behind 0x. Throws ExplainedError for what the type cannot hold.
std::string ParseRegistryData(RegistryType type, std::u16string_view text);

}  // namespace scrivanta
