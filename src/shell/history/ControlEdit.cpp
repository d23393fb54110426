#include "shell/history/ControlEdit.h"

#include <algorithm>
#include <utility>

#include "text/Surrogates.h"

namespace scrivanta {

ControlEdit Reversed(const ControlEdit& edit) {
  return {edit.start, edit.inserted, edit.removed, edit.insertedFormats, edit.removedFormats};
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

std::size_t CostOf(const SharedFormats& formats) {
  return formats ? sizeof *formats + formats->runs.size() * sizeof(FormatRun) +
                       formats->paragraphs.size() * sizeof(SharedFormat)
                 : 0;
}

std::size_t CostOf(const ControlEdit& edit) {
  return sizeof edit + (edit.removed.size() + edit.inserted.size()) * sizeof(char16_t) + CostOf(edit.removedFormats) +
         CostOf(edit.insertedFormats);
}

std::optional<std::vector<ControlRange>> PlacesBeforeAll(std::span<const ControlEdit> edits) {
  std::vector<ControlRange> places;
  std::size_t shift = 0;  // of what follows the edits so far; may be below zero
  bool ascends = true;
  bool descends = true;
  std::size_t begin = 0;  // of the last edit, and where it ends
  std::size_t end = 0;
  for (const ControlEdit& edit : edits) {
    const std::size_t length = edit.IsFormatting() ? edit.removedFormats->length() : edit.removed.size();
    const std::size_t newLength = edit.IsFormatting() ? length : edit.inserted.size();
    ascends = ascends && edit.start.value >= end;
    descends = descends && (places.empty() || edit.start.value + length <= begin);
    if (!ascends && !descends) {
      return std::nullopt;
    }
    places.push_back({{ascends ? edit.start.value - shift : edit.start.value}, length});
    shift += newLength - length;
    begin = edit.start.value;
    end = begin + newLength;
  }
  return places;
}

std::size_t WholePairsAtEnd(std::u16string_view commonBeginning) {
  return commonBeginning.size() - (!commonBeginning.empty() && IsHighSurrogate(commonBeginning.back()) ? 1 : 0);
}

std::size_t WholePairsAtStart(std::u16string_view commonEnd) {
  return commonEnd.size() - (!commonEnd.empty() && IsLowSurrogate(commonEnd.front()) ? 1 : 0);
}

}  // namespace scrivanta
