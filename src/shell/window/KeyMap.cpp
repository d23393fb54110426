#include "shell/window/KeyMap.h"

#include <algorithm>

#include "shell/window/MenuTree.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kSection = u"Keys";
constexpr std::u16string_view kNone = u"none";
constexpr std::u16string_view kOfTheProgram = u"default";

std::vector<KeyStroke> KeysOfTheProgram(std::string_view controlName) {
  std::vector<KeyStroke> keys;
  const MenuEntry& entry = *MenuEntryOf(*MenuCommandId(controlName));
  for (const std::u16string_view text : {entry.shortcut, entry.olderShortcut}) {
    if (const std::optional<KeyStroke> key = ParseKeyStroke(text)) {
      keys.push_back(*key);
    }
  }
  return keys;
}

}  // namespace

KeyMap::KeyMap(const Settings& settings) {
  const SettingEntries entries = settings.Entries(Store::kRegistry, kSection);
  // First all that lose their keys: one of these may be another command's now.
  for (const auto& [name, text] : entries) {
    const std::string controlName(name.begin(), name.end());
    if (text != kOfTheProgram && MenuCommandId(controlName)) {
      own_[controlName] = std::nullopt;
    }
  }
  for (auto& [name, key] : own_) {
    if (const auto wanted = ParseKeyStroke(entries.at(std::u16string(name.begin(), name.end())))) {
      Assign(name, *wanted);
    }
  }
}

std::vector<KeyStroke> KeyMap::KeysOf(std::string_view controlName) const {
  const auto own = own_.find(controlName);
  if (own == own_.end()) {
    return KeysOfTheProgram(controlName);
  }
  return own->second ? std::vector{*own->second} : std::vector<KeyStroke>();
}

std::u16string KeyMap::ShownKey(std::string_view controlName) const {
  const std::vector<KeyStroke> keys = KeysOf(controlName);
  return keys.empty() ? std::u16string() : KeyStrokeText(keys.front());
}

std::u16string KeyMap::AllKeys(std::string_view controlName) const {
  std::u16string text;
  for (const KeyStroke& key : KeysOf(controlName)) {
    text += (text.empty() ? u"" : u"、") + KeyStrokeText(key);
  }
  return text;
}

std::u16string KeyMap::WhyTaken(std::string_view controlName, const KeyStroke& key) const {
  for (const MenuEntry& entry : MenuTree()) {
    const std::vector<KeyStroke> keys = KeysOf(entry.controlName);
    if (entry.controlName != controlName && std::ranges::find(keys, key) != keys.end()) {
      return KeyStrokeText(key) + u" 已经是“" + PlainCaption(entry.caption) + u"”的快捷键";
    }
  }
  return {};
}

std::u16string KeyMap::Assign(std::string_view controlName, std::optional<KeyStroke> key) {
  if (key) {
    if (const std::u16string reason = WhyNoCommandMayHave(*key); !reason.empty()) {
      return KeyStrokeText(*key) + u" " + reason;
    }
    if (std::u16string reason = WhyTaken(controlName, *key); !reason.empty()) {
      return reason;
    }
  }
  own_.insert_or_assign(std::string(controlName), key);
  return {};
}

std::u16string KeyMap::Restore(std::string_view controlName) {
  for (const KeyStroke& key : KeysOfTheProgram(controlName)) {
    if (std::u16string reason = WhyTaken(controlName, key); !reason.empty()) {
      return reason;
    }
  }
  if (const auto own = own_.find(controlName); own != own_.end()) {
    own_.erase(own);
  }
  return {};
}

void KeyMap::Save(Settings& settings) const {
  SettingEntries entries = settings.Entries(Store::kRegistry, kSection);
  for (auto& [name, text] : entries) {
    text = kOfTheProgram;
  }
  for (const auto& [name, key] : own_) {
    entries[std::u16string(name.begin(), name.end())] = key ? KeyStrokeText(*key) : std::u16string(kNone);
  }
  if (!entries.empty()) {
    settings.SaveAll(entries, Store::kRegistry, kSection);
  }
}

std::u16string PlainCaption(std::u16string_view caption) {
  if (caption.starts_with(u"&")) {
    caption.remove_prefix(std::min(caption.find(u' ') + 1, caption.size()));
  }
  if (caption.ends_with(u"...")) {
    caption.remove_suffix(3);
  }
  return std::u16string(caption);
}

}  // namespace scrivanta
