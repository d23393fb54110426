// What opening a rich text in an edit control and saving it takes away from it (Rich Text Format 1.9).
#pragma once

#include <set>
#include <string_view>

namespace scrivanta {

// In the order in which they are told.
enum class RtfLoss {
  kStyles,  // their names; what they look like stays
  kLists,   // numbers that are counted
  kBookmarks,
  kRevisions,
  kSections,     // behind the first
  kTables,       // tables in cells, joined cells
  kTextEffects,  // capitals, shadow, spacing and the like
  kParts,        // things like pictures, more than KeptParts can keep
};

std::set<RtfLoss> RtfLosses(std::string_view rtf);

}  // namespace scrivanta
