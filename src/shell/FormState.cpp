#include "shell/FormState.h"

#include <algorithm>

#include "text/Numbers.h"

namespace scrivanta {
namespace {

constexpr std::u16string_view kLineBreak = u"\r\n";
constexpr std::u16string_view kMaximized = u"Maximized";
constexpr std::u16string_view kWindow = u"Window";

std::u16string NumberText(int number) {
  std::u16string text;
  for (const char digit : std::to_string(number)) {
    text += static_cast<char16_t>(digit);
  }
  return text;
}

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
bool TakeValue(FormControl& control, const std::optional<std::u16string>& value) {
  if (!value) {
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

std::u16string FormKey(std::u16string_view form, std::u16string_view control, std::optional<int> index) {
  std::u16string key(form);
  key.append(u".").append(control);
  return index ? key + u"(" + NumberText(*index) + u")" : key;
}

std::u16string FormListKey(std::u16string_view form, std::u16string_view control, std::optional<int> index) {
  return FormKey(form, control, index) + u".CombAllList$";
}

void SaveForm(const Form& form, Settings& settings, Store store) {
  const std::u16string name = form.Name();
  for (const FormControl& control : form.Controls()) {
    if (const auto value = ValueOf(control)) {
      settings.Save(FormKey(name, control.name, control.index), *value, store);
    }
    if (control.typeName == u"ComboBox") {
      settings.Save(FormListKey(name, control.name, control.index), Joined(control.items), store);
    }
  }
  const FormPlacement placement = form.Placement();
  settings.Save(FormKey(name, u"Left"), NumberText(placement.left), store);
  settings.Save(FormKey(name, u"Top"), NumberText(placement.top), store);
  settings.Save(FormKey(name, u"Width"), NumberText(placement.width), store);
  settings.Save(FormKey(name, u"Height"), NumberText(placement.height), store);
  settings.Save(FormKey(name, u"State"), placement.maximized ? kMaximized : kWindow, store);
}

void RestoreForm(Form& form, const Settings& settings, Store store) {
  const std::u16string name = form.Name();
  for (FormControl& control : form.Controls()) {
    bool kept = TakeValue(control, settings.Find(FormKey(name, control.name, control.index), store));
    if (control.typeName == u"ComboBox") {
      if (const auto list = settings.Find(FormListKey(name, control.name, control.index), store)) {
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
    if (const auto value = settings.Find(FormKey(name, key), store)) {
      number = static_cast<int>(std::clamp<long long>(LeadingWholeNumber(*value), -1'000'000, 1'000'000));
    }
  };
  take(u"Left", placement.left);
  take(u"Top", placement.top);
  take(u"Width", placement.width);
  take(u"Height", placement.height);
  if (const auto state = settings.Find(FormKey(name, u"State"), store)) {
    placement.maximized = *state == kMaximized;
  }
  form.SetPlacement(placement);
}

}  // namespace scrivanta
