// The list of a combo box with history: what was entered last stands first.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace scrivanta {

class ComboHistory {
 public:
  ComboHistory() = default;
  explicit ComboHistory(std::vector<std::u16string> items) : items_(std::move(items)) {}

  const std::vector<std::u16string>& items() const noexcept { return items_; }
  bool Contains(std::u16string_view item) const;
  // Puts an item first, wherever it stood; an empty one is passed over. Returns whether that changed the list.
  bool PutFirst(std::u16string_view item);
  // Puts it last, unless the list has it already. Returns whether it was put there.
  bool AppendMissing(std::u16string_view item);
  // Moves the items that contain the keyword to the front, in the order they had.
  void MoveToFront(std::u16string_view keyword);

 private:
  std::vector<std::u16string> items_;
};

}  // namespace scrivanta
