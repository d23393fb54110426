// A registry in memory, with keys that nobody may open.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "system/registry/RegistryKeys.h"

namespace scrivanta::testing {

class MemoryRegistry final : public RegistryKeys {
 public:
  bool Has(const std::u16string& key) const override { return Find(key) != keys.end(); }
  std::vector<std::u16string> Subkeys(const std::u16string& key) const override {
    Open(key);
    std::vector<std::u16string> names;
    for (const auto& [other, values] : keys) {
      if (other.size() > key.size() && IsInKey(other, key) && other.find(u'\\', key.size() + 1) == other.npos) {
        names.push_back(other.substr(key.size() + 1));
      }
    }
    return names;
  }
  std::vector<RegistryValue> Values(const std::u16string& key) const override {
    Open(key);
    return Find(key)->second;
  }
  void Create(const std::u16string& key) override {
    if (!IsRegistryRoot(key) && !Has(key)) {
      Create(ParentKey(key));
    }
    if (!Has(key)) {
      keys[key];
    }
  }
  void Delete(const std::u16string& key) override {
    std::erase_if(keys, [&key](const auto& entry) { return IsInKey(entry.first, key); });
  }
  void SetValue(const std::u16string& key, const RegistryValue& value) override {
    Open(key);
    DeleteValue(key, value.name);
    keys[Find(key)->first].push_back(value);
  }
  void DeleteValue(const std::u16string& key, const std::u16string& name) override {
    if (Has(key)) {
      std::erase_if(keys[Find(key)->first],
                    [&name](const RegistryValue& value) { return SameRegistryName(value.name, name); });
    }
  }

  std::map<std::u16string, std::vector<RegistryValue>> keys;
  std::set<std::u16string> closed;

 private:
  std::map<std::u16string, std::vector<RegistryValue>>::const_iterator Find(const std::u16string& key) const {
    auto found = keys.begin();
    while (found != keys.end() && !SameRegistryName(found->first, key)) {
      ++found;
    }
    return found;
  }
  void Open(const std::u16string& key) const {
    if (closed.contains(key)) {
      throw RegistryError(key, std::make_error_code(std::errc::permission_denied));
    }
    if (!Has(key)) {
      throw RegistryError(key, std::make_error_code(std::errc::no_such_file_or_directory));
    }
  }
};

}  // namespace scrivanta::testing
