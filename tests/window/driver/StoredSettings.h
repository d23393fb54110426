// The program's settings in the registry, as texts.
#pragma once

#include <optional>
#include <string>

namespace scrivanta {

std::optional<std::u16string> StoredSetting(const std::u16string& key, const std::u16string& section = u"Settings");
void StoreSetting(const std::u16string& key, const std::u16string& value, const std::u16string& section = u"Settings");
void ForgetSettings();

}  // namespace scrivanta
