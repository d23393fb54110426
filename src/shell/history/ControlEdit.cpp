#include "shell/history/ControlEdit.h"

#include <algorithm>
#include <utility>

#include "text/Surrogates.h"

namespace scrivanta {

ControlEdit Reversed(const ControlEdit& edit) {
  return {edit.start, edit.inserted, edit.removed};
}

ControlEdit Trimmed(ControlEdit edit) {
  const std::u16string_view inserted = edit.inserted;
  const auto prefix =
      static_cast<std::size_t>(std::ranges::mismatch(edit.removed, inserted).in1 - edit.removed.begin());
  const std::size_t prefixLength = WholePairsAtEnd(inserted.substr(0, prefix));
  edit.removed.erase(0, prefixLength);
  edit.inserted.erase(0, prefixLength);
  edit.start.value += prefixLength;
  const auto suffix = static_cast<std::size_t>(
      std::mismatch(edit.removed.rbegin(), edit.removed.rend(), edit.inserted.rbegin(), edit.inserted.rend()).first -
      edit.removed.rbegin());
  const std::size_t suffixLength =
      WholePairsAtStart(std::u16string_view(edit.inserted).substr(edit.inserted.size() - suffix));
  edit.removed.resize(edit.removed.size() - suffixLength);
  edit.inserted.resize(edit.inserted.size() - suffixLength);
  return edit;
}

std::size_t CostOf(const ControlEdit& edit) {
  return sizeof edit + (edit.removed.size() + edit.inserted.size()) * sizeof(char16_t);
}

std::size_t WholePairsAtEnd(std::u16string_view commonBeginning) {
  return commonBeginning.size() - (!commonBeginning.empty() && IsHighSurrogate(commonBeginning.back()) ? 1 : 0);
}

std::size_t WholePairsAtStart(std::u16string_view commonEnd) {
  return commonEnd.size() - (!commonEnd.empty() && IsLowSurrogate(commonEnd.front()) ? 1 : 0);
}

}  // namespace scrivanta
