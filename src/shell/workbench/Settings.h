// What is kept between runs: the registry-backed store and the ini file behind one interface.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "text/Interface.h"

namespace scrivanta {

inline constexpr std::u16string_view kFormSection = u"FormSaveSetting";
inline constexpr std::u16string_view kWindowSection = u"Settings";

enum class Store { kRegistry, kIniFile };

// The values of one section by their keys.
using SettingEntries = std::map<std::u16string, std::u16string>;

class Settings : public Interface {
 public:
  // An empty section means kFormSection. Line breaks in the value are kept (stored as "<#@#>"). Throws when the store
  // cannot be written.
  virtual void Save(std::u16string_view key, std::u16string_view value, Store store = Store::kRegistry,
                    std::u16string_view section = kFormSection) = 0;
  // The same for many entries of one section; a store that is a file is read and replaced only once.
  virtual void SaveAll(const SettingEntries& entries, Store store = Store::kRegistry,
                       std::u16string_view section = kFormSection) = 0;
  // Nothing when the key is absent.
  virtual std::optional<std::u16string> Find(std::u16string_view key, Store store = Store::kRegistry,
                                             std::u16string_view section = kFormSection) const = 0;
  // All entries of a section, read in one pass: for lists of many entries, and for forms.
  virtual SettingEntries Entries(Store store = Store::kRegistry, std::u16string_view section = kFormSection) const = 0;
  // Where a section of the registry-backed store stands in the registry, from its root on; nothing when this copy keeps
  // it in the ini file.
  virtual std::optional<std::u16string> RegistryKeyOf(std::u16string_view section) const = 0;
  // The empty text when the key is absent.
  std::u16string Get(std::u16string_view key, Store store = Store::kRegistry,
                     std::u16string_view section = kFormSection) const {
    return Find(key, store, section).value_or(std::u16string());
  }
};

}  // namespace scrivanta
