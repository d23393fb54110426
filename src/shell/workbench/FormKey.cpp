#include "shell/workbench/FormKey.h"

#include "text/DecimalText.h"

namespace scrivanta {

std::u16string FormKey(std::u16string_view form, std::u16string_view control, std::optional<int> index) {
  std::u16string key(form);
  key.append(u".").append(control);
  return index ? key + u"(" + DecimalText(*index) + u")" : key;
}

std::u16string FormListKey(std::u16string_view form, std::u16string_view control, std::optional<int> index) {
  return FormKey(form, control, index) + u".CombAllList$";
}

}  // namespace scrivanta
