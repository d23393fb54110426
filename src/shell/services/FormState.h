// Keeps what a dialog holds between runs, all of its input controls and its placement in one call.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/workbench/FormKey.h"
#include "shell/workbench/Settings.h"
#include "text/Interface.h"

namespace scrivanta {

// A control as the store sees it; what its type does not have stays empty.
struct FormControl {
  std::u16string_view typeName;  // "TextBox", "RichTextBox", "OptionButton", "CheckBox", "ComboBox", "ListBox", "Label"
  std::u16string name;
  std::optional<int> index;           // of a member of a control array
  std::u16string text;                // what is entered or shown; of a list box the item that is selected
  bool checked = false;               // option buttons and check boxes
  std::vector<std::u16string> items;  // combo boxes
};

// In twips, of the window when it is not maximized.
struct FormPlacement {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool maximized = false;
};

class Form : public Interface {
 public:
  virtual std::u16string Name() const = 0;
  // In the order in which they are to be restored.
  virtual std::vector<FormControl> Controls() const = 0;
  // Gives the control of this name and index what the record holds.
  virtual void SetControl(const FormControl& control) = 0;
  virtual FormPlacement Placement() const = 0;
  virtual void SetPlacement(const FormPlacement& placement) = 0;
};

// Labels are not saved; a text kept under a label's key is shown on restoring. Controls without a kept value stay as
// they are, and so does the placement.
void SaveForm(const Form& form, Settings& settings, Store store = Store::kRegistry);
void RestoreForm(Form& form, const Settings& settings, Store store = Store::kRegistry);

}  // namespace scrivanta
