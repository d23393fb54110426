#include "shell/services/FormState.h"

#include <algorithm>

#include "text/DecimalText.h"
#include "text/Numbers.h"

namespace scrivanta {
namespace {

constexpr std::u16string_view kLineBreak = u"\r\n";
constexpr std::u16string_view kMaximized = u"Maximized";
constexpr std::u16string_view kWindow = u"Window";

bool IsTrue(std::u16string_view text) {
  return text == u"True" || LeadingNumber(text) != 0;
}

std::u16string Joined(const std::vector<std::u16string>& items) {
  std::u16string text;
  for (const std::u16string& item : items) {
    text.append(text.empty() ? std::u16string_view() : kLineBreak).append(item);
  }
  return text;
}

std::vector<std::u16string> Split(std::u16string_view text) {
  std::vector<std::u16string> items;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(kLineBreak), text.size());
    items.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + kLineBreak.size(), text.size()));
  }
  return items;
}

bool HoldsText(std::u16string_view typeName) {
  return typeName == u"TextBox" || typeName == u"RichTextBox" || typeName == u"ComboBox" || typeName == u"ListBox";
}

std::optional<std::u16string> ValueOf(const FormControl& control) {
  if (control.typeName == u"OptionButton") {
    return control.checked ? u"True" : u"False";
  }
  if (control.typeName == u"CheckBox") {
    return control.checked ? u"1" : u"0";
  }
  return HoldsText(control.typeName) ? std::optional(control.text) : std::nullopt;
}

// Takes the kept value over; false when there is none.
bool TakeValue(FormControl& control, const std::u16string* value) {
  if (value == nullptr) {
    return false;
  }
  if (control.typeName == u"OptionButton" || control.typeName == u"CheckBox") {
    control.checked = IsTrue(*value);
    return true;
  }
  control.text = *value;
  return HoldsText(control.typeName) || control.typeName == u"Label";
}

}  // namespace

void SaveForm(const Form& form, Settings& settings, Store store) {
  const std::u16string name = form.Name();
  SettingEntries entries;
  for (const FormControl& control : form.Controls()) {
    if (const auto value = ValueOf(control)) {
      entries[FormKey(name, control.name, control.index)] = *value;
    }
    if (control.typeName == u"ComboBox") {
      entries[FormListKey(name, control.name, control.index)] = Joined(control.items);
    }
  }
  const FormPlacement placement = form.Placement();
  entries[FormKey(name, u"Left")] = DecimalText(placement.left);
  entries[FormKey(name, u"Top")] = DecimalText(placement.top);
  entries[FormKey(name, u"Width")] = DecimalText(placement.width);
  entries[FormKey(name, u"Height")] = DecimalText(placement.height);
  entries[FormKey(name, u"State")] = placement.maximized ? kMaximized : kWindow;
  settings.SaveAll(entries, store);
}

void RestoreForm(Form& form, const Settings& settings, Store store) {
  const std::u16string name = form.Name();
  const SettingEntries entries = settings.Entries(store);
  const auto find = [&entries](const std::u16string& key) {
    const auto entry = entries.find(key);
    return entry == entries.end() ? nullptr : &entry->second;
  };
  for (FormControl& control : form.Controls()) {
    bool kept = TakeValue(control, find(FormKey(name, control.name, control.index)));
    if (control.typeName == u"ComboBox") {
      if (const auto* list = find(FormListKey(name, control.name, control.index))) {
        control.items = Split(*list);
        kept = true;
      }
    }
    if (kept) {
      form.SetControl(control);
    }
  }
  FormPlacement placement = form.Placement();
  const auto take = [&](std::u16string_view key, int& number) {
    if (const auto* value = find(FormKey(name, key))) {
      number = static_cast<int>(std::clamp<long long>(LeadingWholeNumber(*value), -1'000'000, 1'000'000));
    }
  };
  take(u"Left", placement.left);
  take(u"Top", placement.top);
  take(u"Width", placement.width);
  take(u"Height", placement.height);
  if (const auto* state = find(FormKey(name, u"State"))) {
    placement.maximized = *state == kMaximized;
  }
  form.SetPlacement(placement);
}

}  // namespace scrivanta
