// Where a dialog stands, kept between runs.
#pragma once

#include <optional>
#include <string_view>

#include "shell/workbench/Settings.h"

namespace scrivanta {

// The upper left corner on the desktop, in twips.
struct DialogPlace {
  int left = 0;
  int top = 0;

  friend bool operator==(const DialogPlace&, const DialogPlace&) = default;
};

// Kept as a saved form keeps it, under "FORM.Left" and "FORM.Top". Nothing when it was not kept whole.
std::optional<DialogPlace> ReadDialogPlace(const Settings& settings, std::u16string_view form);
void SaveDialogPlace(Settings& settings, std::u16string_view form, const DialogPlace& place);

}  // namespace scrivanta
