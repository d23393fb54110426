// The registry of the system.
#pragma once

#include "system/registry/RegistryKeys.h"

namespace scrivanta {

class ScrivantaRegistryKeys final : public RegistryKeys {
 public:
  bool Has(const std::u16string& key) const override;
  std::vector<std::u16string> Subkeys(const std::u16string& key) const override;
  std::vector<RegistryValue> Values(const std::u16string& key) const override;
  void Create(const std::u16string& key) override;
  void Delete(const std::u16string& key) override;
  void SetValue(const std::u16string& key, const RegistryValue& value) override;
  void DeleteValue(const std::u16string& key, const std::u16string& name) override;
};

}  // namespace scrivanta
