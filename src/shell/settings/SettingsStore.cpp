#include "shell/settings/SettingsStore.h"

namespace scrivanta {
namespace {

constexpr std::u16string_view kLineBreak = u"\r\n";
constexpr std::u16string_view kLineBreakMark = u"<#@#>";

std::u16string Replaced(std::u16string_view text, std::u16string_view from, std::u16string_view to) {
  std::u16string replaced;
  for (std::size_t found = text.find(from); found != std::u16string_view::npos; found = text.find(from)) {
    replaced.append(text.substr(0, found)).append(to);
    text.remove_prefix(found + from.size());
  }
  return replaced.append(text);
}

std::u16string_view OrDefault(std::u16string_view section) {
  return section.empty() ? kFormSection : section;
}

}  // namespace

void SettingsStore::Save(std::u16string_view key, std::u16string_view value, Store store, std::u16string_view section) {
  SaveAll({{std::u16string(key), std::u16string(value)}}, store, section);
}

void SettingsStore::SaveAll(const SettingEntries& entries, Store store, std::u16string_view section) {
  SettingEntries stored;
  for (const auto& [key, value] : entries) {
    stored.emplace(key, Replaced(value, kLineBreak, kLineBreakMark));
  }
  if (store == Store::kIniFile) {
    iniFile_.WriteAll(OrDefault(section), stored);
  } else {
    registry_.WriteAll(OrDefault(section), stored);
  }
}

std::optional<std::u16string> SettingsStore::Find(std::u16string_view key, Store store,
                                                  std::u16string_view section) const {
  const std::optional<std::u16string> stored =
      store == Store::kIniFile ? iniFile_.Read(OrDefault(section), key) : registry_.Read(OrDefault(section), key);
  return stored ? std::optional(Replaced(*stored, kLineBreakMark, kLineBreak)) : std::nullopt;
}

SettingEntries SettingsStore::Entries(Store store, std::u16string_view section) const {
  SettingEntries entries =
      store == Store::kIniFile ? iniFile_.ReadAll(OrDefault(section)) : registry_.ReadAll(OrDefault(section));
  for (auto& [key, value] : entries) {
    value = Replaced(value, kLineBreakMark, kLineBreak);
  }
  return entries;
}

}  // namespace scrivanta
