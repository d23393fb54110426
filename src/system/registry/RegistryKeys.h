// The registry: keys below keys, and values in them. The system's own is ScrivantaRegistryKeys; tests have one in
// memory.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "text/ExplainedError.h"
#include "text/Interface.h"

namespace scrivanta {

// The numbers are the system's. Others than these are met, and kept as they are.
enum class RegistryType : std::uint32_t {
  kNone = 0,
  kText = 1,
  kExpandText = 2,
  kBinary = 3,
  kDword = 4,
  kDwordBigEndian = 5,
  kLink = 6,
  kMultiText = 7,
  kResourceList = 8,
  kFullResourceDescriptor = 9,
  kResourceRequirementsList = 10,
  kQword = 11,
};

struct RegistryValue {
  std::u16string name;  // empty: the key's default value
  RegistryType type = RegistryType::kText;
  std::string bytes;  // as the registry holds them: texts in UTF-16, least byte first, with their closing NULs

  friend bool operator==(const RegistryValue&, const RegistryValue&) = default;
};

// A key that cannot be read or changed.
class RegistryError : public ExplainedError {
 public:
  RegistryError(std::u16string_view key, const std::error_code& code);

  // Why, without the key.
  const std::u16string& reason() const noexcept { return reason_; }

 private:
  RegistryError(std::u16string_view key, const std::error_code& code, const std::u16string& reason);

  std::u16string reason_;
};

// Keys are named by their whole path: HKEY_CURRENT_USER\Software. Letter case makes no difference. All throw
// RegistryError.
class RegistryKeys : public Interface {
 public:
  virtual bool Has(const std::u16string& key) const = 0;
  virtual std::vector<std::u16string> Subkeys(const std::u16string& key) const = 0;
  virtual std::vector<RegistryValue> Values(const std::u16string& key) const = 0;
  // With those above it, where they are not there.
  virtual void Create(const std::u16string& key) = 0;
  // With all that is below it. Nothing happens where it is not there, here and below.
  virtual void Delete(const std::u16string& key) = 0;
  // In a key that is there.
  virtual void SetValue(const std::u16string& key, const RegistryValue& value) = 0;
  virtual void DeleteValue(const std::u16string& key, const std::u16string& name) = 0;
};

// The roots in the order in which they are shown.
const std::vector<std::u16string>& RegistryRoots();

// The path of a key as people write or copy it: with HKCU or HKEY_CURRENT_USER in any letter case, in brackets, behind
// the name of the computer, with "\" at its end. Nothing when it begins with no root.
std::optional<std::u16string> RegistryKeyOf(std::u16string_view text);
// The key above; empty for a root.
std::u16string ParentKey(std::u16string_view key);
bool IsRegistryRoot(std::u16string_view key);
bool SameRegistryName(std::u16string_view left, std::u16string_view right);
// Whether it is the key, or one below it.
bool IsInKey(std::u16string_view other, std::u16string_view key);

std::optional<RegistryValue> FindValue(const RegistryKeys& keys, const std::u16string& key, std::u16string_view name);

}  // namespace scrivanta
