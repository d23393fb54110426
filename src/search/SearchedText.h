// What is searched in the edit box: all of it, or the part that the user has chosen.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "regexp/RegExp.h"
#include "search/FindState.h"
#include "shell/workbench/Workbench.h"

namespace scrivanta {

struct SearchedText {
  std::u16string text;
  std::size_t begin = 0;  // in the document

  TextRange InDocument(TextRange range) const { return {{begin + range.start.value}, range.length}; }
};

// The marked part of the editor where the state says so and there is one; nothing when all is searched.
std::optional<TextRange> PartToSearch(const Editor& editor, const FindState& state);
SearchedText TextToSearch(const Editor& editor, const FindState& state);

// All places in what is searched of the document, whose text this is, as ranges of the document. Throws what FindPlaces
// throws.
std::vector<TextRange> PlacesInDocument(std::u16string_view text, Workbench& workbench, const FindState& state,
                                        Progress& progress);

}  // namespace scrivanta
