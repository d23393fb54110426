#include "system/registry/RegistryKeys.h"

#include <algorithm>
#include <array>
#include <utility>

#include "text/ErrorText.h"
#include "text/UpperCase.h"

namespace scrivanta {

namespace {

constexpr std::array<std::pair<std::u16string_view, std::u16string_view>, 5> kRoots = {
    {{u"HKEY_CLASSES_ROOT", u"HKCR"},
     {u"HKEY_CURRENT_USER", u"HKCU"},
     {u"HKEY_LOCAL_MACHINE", u"HKLM"},
     {u"HKEY_USERS", u"HKU"},
     {u"HKEY_CURRENT_CONFIG", u"HKCC"}}};

// With the failures that only the registry has.
std::u16string ReasonOf(const std::error_code& code) {
  if (code == std::errc::permission_denied) {
    return u"没有权限";
  }
  return code == std::errc::no_such_file_or_directory ? u"没有这个键" : FileErrorReason(code);
}

std::u16string_view Root(std::u16string_view key) {
  return key.substr(0, key.find(u'\\'));
}

}  // namespace

RegistryError::RegistryError(std::u16string_view key, const std::error_code& code)
    : RegistryError(key, code, ReasonOf(code)) {}

RegistryError::RegistryError(std::u16string_view key, const std::error_code& code, const std::u16string& reason)
    : ExplainedError("registry: " + code.message(), u"注册表的这个键打不开：\n" + std::u16string(key) + u"\n" + reason),
      reason_(reason) {}

const std::vector<std::u16string>& RegistryRoots() {
  static const std::vector<std::u16string> kNames = [] {
    std::vector<std::u16string> names;
    for (const auto& root : kRoots) {
      names.emplace_back(root.first);
    }
    return names;
  }();
  return kNames;
}

std::optional<std::u16string> RegistryKeyOf(std::u16string_view text) {
  constexpr std::u16string_view kAround = u" \t\r\n[]\"\\";
  const std::size_t first = text.find_first_not_of(kAround);
  if (first == text.npos) {
    return std::nullopt;
  }
  text = text.substr(first, text.find_last_not_of(kAround) + 1 - first);
  const auto rootOf = [](std::u16string_view name) {
    return std::ranges::find_if(kRoots, [name](const auto& root) {
      return SameRegistryName(name, root.first) || SameRegistryName(name, root.second);
    });
  };
  const auto* root = rootOf(Root(text));
  // The computer may stand before the root.
  if (root == kRoots.end() && text.find(u'\\') != text.npos) {
    text.remove_prefix(text.find(u'\\') + 1);
    root = rootOf(Root(text));
  }
  if (root == kRoots.end()) {
    return std::nullopt;
  }
  std::u16string key(root->first);
  for (std::size_t start = Root(text).size() + 1; start < text.size();) {
    const std::size_t end = std::min(text.find(u'\\', start), text.size());
    if (end > start) {
      key.append(u"\\").append(text.substr(start, end - start));
    }
    start = end + 1;
  }
  return key;
}

std::u16string ParentKey(std::u16string_view key) {
  const std::size_t end = key.rfind(u'\\');
  return std::u16string(key.substr(0, end == key.npos ? 0 : end));
}

bool IsRegistryRoot(std::u16string_view key) {
  return key.find(u'\\') == key.npos;
}

bool SameRegistryName(std::u16string_view left, std::u16string_view right) {
  return std::ranges::equal(
      left, right, {}, [](char16_t c) { return UpperCase(c); }, [](char16_t c) { return UpperCase(c); });
}

bool IsInKey(std::u16string_view other, std::u16string_view key) {
  return other.size() >= key.size() && SameRegistryName(other.substr(0, key.size()), key) &&
         (other.size() == key.size() || other[key.size()] == u'\\');
}

std::optional<RegistryValue> FindValue(const RegistryKeys& keys, const std::u16string& key, std::u16string_view name) {
  const std::vector<RegistryValue> values = keys.Values(key);
  const auto found =
      std::ranges::find_if(values, [name](const RegistryValue& value) { return SameRegistryName(value.name, name); });
  return found == values.end() ? std::nullopt : std::optional(*found);
}

}  // namespace scrivanta
