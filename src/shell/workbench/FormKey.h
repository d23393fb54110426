// The keys under which what a dialog holds is kept.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace scrivanta {

// "FrmFind.Combo1", "FrmFind.Option1(2)".
std::u16string FormKey(std::u16string_view form, std::u16string_view control, std::optional<int> index = {});
// The list of a combo box is kept under this key, its items separated by line breaks (stored as "<#@#>").
std::u16string FormListKey(std::u16string_view form, std::u16string_view control, std::optional<int> index = {});

}  // namespace scrivanta
