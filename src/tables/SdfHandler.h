// Delimited records to records of fixed widths (SDF), and back.
#pragma once

#include <optional>
#include <string>

#include "tables/ConversionDialog.h"
#include "tables/FixedLayout.h"

namespace scrivanta {

class TableDialogs;

// What FrmChangeToSDFFile holds.
struct SdfChoices {
  bool isBack = false;  // from fixed widths to delimited records
  std::u16string delimiter = u"TAB符";
  std::u16string widths = {};  // empty: found; the way back needs them
  std::u16string aligns = {};
  WidthUnit unit = WidthUnit::kGbkBytes;
  bool endMark = false;
};

// Throws, when it runs, ChoiceError, LayoutError, RecordError, FieldsDoNotFit.
Conversion SdfConversion(SdfChoices choices);

// The button CmdSaveLayout: asks for a file and writes the layout into it, the widths found in the text where none are
// typed. Throws what cannot be done.
void SaveLayout(ConversionDialog& dialog, const SdfChoices& choices);
// The button CmdLoadLayout: the choices with the layout of a file in them; nothing when the question was cancelled.
// Throws FileError, LayoutError.
std::optional<SdfChoices> LoadLayout(ConversionDialog& dialog, SdfChoices choices);

void mnuChangeToSDFFile(Workbench& workbench, TableDialogs& dialogs);

}  // namespace scrivanta
