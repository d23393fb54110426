// A text looked for in the registry.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "system/registry/RegistryKeys.h"
#include "text/Progress.h"

namespace scrivanta {

struct RegistryPlace {
  std::u16string key;
  bool isKey = false;   // its name has the text; else a value has it
  RegistryValue value;  // only where isKey is false
};

struct RegistryPlaces {
  std::vector<RegistryPlace> places;
  std::size_t unreadable = 0;  // keys that could not be opened
  bool isCut = false;          // there are more than the most
};

// In the names of the keys below, in the names and in the shown data of the values, letter case set aside. An
// interruption ends the search with what was found.
RegistryPlaces SearchRegistry(const RegistryKeys& keys, const std::u16string& key, std::u16string_view what,
                              std::size_t most, Progress& progress);

}  // namespace scrivanta
