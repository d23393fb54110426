// Changes of the registry, what they would do to it, and what takes them back.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "system/registry/RegistryKeys.h"
#include "text/Progress.h"

namespace scrivanta {

enum class RegistryAction { kCreateKey, kDeleteKey, kSetValue, kDeleteValue };

struct RegistryChange {
  RegistryAction action = RegistryAction::kCreateKey;
  std::u16string key;
  RegistryValue value = {};  // only its name for kDeleteValue; none for the actions on keys

  friend bool operator==(const RegistryChange&, const RegistryChange&) = default;
};

// What makes a key and all that is below it, so that it can be written down. Throws RegistryError.
std::vector<RegistryChange> ContentOfKey(const RegistryKeys& keys, const std::u16string& key, Progress& progress);

// A change as the user sees it before it is done.
struct RegistryChangeRow {
  std::u16string key;
  std::u16string name;  // "（默认）" for the default value; empty for keys
  std::u16string before;
  std::u16string after;
};

struct RegistryPlan {
  std::vector<RegistryChange> changes;  // those that change something
  std::vector<RegistryChangeRow> rows;  // one a change
  std::vector<RegistryChange> undo;     // takes them back
};

// Looks at all that the changes touch, and changes nothing. What they would delete is read as a whole, so that a key
// that cannot be read is not deleted. Throws RegistryError.
RegistryPlan PlanRegistry(const RegistryKeys& keys, const std::vector<RegistryChange>& changes, Progress& progress);

// Throws RegistryError; what was done before stays done, and the undo takes it back too.
void ApplyRegistry(RegistryKeys& keys, const std::vector<RegistryChange>& changes, Progress& progress);

std::u16string ShowRegistryName(std::u16string_view name);

}  // namespace scrivanta
