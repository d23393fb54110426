// The registry-backed settings of the program on the user's registry: a key a section.
#pragma once

#include "shell/settings/RegistryStore.h"

namespace scrivanta {

class ScrivantaRegistry final : public RegistryStore {
 public:
  explicit ScrivantaRegistry(std::u16string_view programTitle);

  std::optional<std::u16string> Read(std::u16string_view section, std::u16string_view key) const override;
  void Write(std::u16string_view section, std::u16string_view key, std::u16string_view value) override;
  SettingEntries ReadAll(std::u16string_view section) const override;
  std::optional<std::u16string> KeyOf(std::u16string_view section) const override;

 private:
  std::u16string root_;  // ends in a backslash
};

}  // namespace scrivanta
