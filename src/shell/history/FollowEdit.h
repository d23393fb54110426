// Where a marked part of a text is after an edit.
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>

namespace scrivanta {

// `removed` is gone, and `inserted` units stand in its place. What is put in right at an end of the part belongs to it;
// of an edit that reaches beyond one end, nothing does. Nothing when the edit takes away more than all of the part.
template <typename Range>
std::optional<Range> FollowEdit(Range part, Range removed, std::size_t inserted) {
  const std::size_t begin = part.start.value;
  const std::size_t end = part.end().value;
  const std::size_t from = removed.start.value;
  const std::size_t to = removed.end().value;
  if (from > end || (from == end && !removed.empty())) {
    return part;
  }
  if (to < begin || (to == begin && !removed.empty())) {
    return Range{{begin + inserted - removed.length}, part.length};
  }
  if (from >= begin && to <= end) {
    return Range{part.start, part.length + inserted - removed.length};
  }
  if (from < begin && to > end) {
    return std::nullopt;
  }
  return from < begin ? Range{{from + inserted}, end - to} : Range{part.start, from - begin};
}

}  // namespace scrivanta
