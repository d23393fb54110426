// The documents used last. All instances of the program share the list, so it is read and written as a whole each time.
#pragma once

#include <cstddef>
#include <filesystem>
#include <vector>

#include "shell/workbench/Settings.h"

namespace scrivanta {

struct RecentDocument {
  std::filesystem::path path;
  bool isPinned = false;  // stays in the list when newer ones come

  friend bool operator==(const RecentDocument&, const RecentDocument&) = default;
};

class RecentDocuments {
 public:
  static constexpr std::size_t kMost = 10;

  explicit RecentDocuments(Settings& settings) : settings_(settings) {}

  // The one used last stands first.
  std::vector<RecentDocument> List() const;
  // The path is absolute, here and below.
  void Note(const std::filesystem::path& path);
  // Does nothing with one that is not in the list.
  void Pin(const std::filesystem::path& path, bool isPinned);
  void Remove(const std::filesystem::path& path);

 private:
  void Keep(const std::vector<RecentDocument>& list);

  Settings& settings_;
};

}  // namespace scrivanta
