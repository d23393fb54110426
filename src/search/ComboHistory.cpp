#include "search/ComboHistory.h"

#include <algorithm>

namespace scrivanta {

namespace {

constexpr std::u16string_view kLineBreak = u"\r\n";

}  // namespace

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

std::u16string JoinLines(const std::vector<std::u16string>& items) {
  std::u16string joined;
  for (const std::u16string& item : items) {
    joined.append(joined.empty() ? std::u16string_view() : kLineBreak).append(item);
  }
  return joined;
}

std::vector<std::u16string> SplitLines(std::u16string_view text) {
  std::vector<std::u16string> items;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(kLineBreak), text.size());
    if (end > 0) {
      items.emplace_back(text.substr(0, end));
    }
    text.remove_prefix(std::min(end + kLineBreak.size(), text.size()));
  }
  return items;
}

}  // namespace scrivanta
