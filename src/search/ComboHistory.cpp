#include "search/ComboHistory.h"

#include <algorithm>

namespace scrivanta {

bool ComboHistory::Contains(std::u16string_view item) const {
  return std::find(items_.begin(), items_.end(), item) != items_.end();
}

bool ComboHistory::PutFirst(std::u16string_view item) {
  if (item.empty() || (!items_.empty() && items_.front() == item)) {
    return false;
  }
  std::u16string first(item);
  std::erase(items_, first);
  items_.insert(items_.begin(), std::move(first));
  return true;
}

bool ComboHistory::AppendMissing(std::u16string_view item) {
  if (Contains(item)) {
    return false;
  }
  items_.emplace_back(item);
  return true;
}

void ComboHistory::MoveToFront(std::u16string_view keyword) {
  std::stable_partition(items_.begin(), items_.end(),
                        [keyword](const std::u16string& item) { return item.find(keyword) != std::u16string::npos; });
}

}  // namespace scrivanta
