#include "shell/window/RecentDocuments.h"

#include <algorithm>
#include <ranges>

#include "text/DecimalText.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kSection = u"RecentDocuments";
// Before the path.
constexpr char16_t kPinned = u'*';
constexpr char16_t kNotPinned = u'-';

std::u16string KeyOf(std::size_t place) {
  return u"Document" + DecimalText(place);
}

}  // namespace

std::vector<RecentDocument> RecentDocuments::List() const {
  const SettingEntries entries = settings_.Entries(Store::kRegistry, kSection);
  std::vector<RecentDocument> list;
  for (std::size_t place = 0; place < kMost; ++place) {
    const auto found = entries.find(KeyOf(place));
    if (found != entries.end() && found->second.size() > 1) {
      list.push_back({PathOfText(found->second.substr(1)), found->second.front() == kPinned});
    }
  }
  return list;
}

void RecentDocuments::Keep(const std::vector<RecentDocument>& list) {
  SettingEntries entries;
  for (std::size_t place = 0; place < kMost; ++place) {
    const bool isThere = place < list.size();
    entries[KeyOf(place)] =
        isThere ? (list[place].isPinned ? kPinned : kNotPinned) + TextOfPath(list[place].path) : std::u16string();
  }
  settings_.SaveAll(entries, Store::kRegistry, kSection);
}

void RecentDocuments::Note(const std::filesystem::path& path) {
  std::vector<RecentDocument> list = List();
  RecentDocument document{path, false};
  std::erase_if(list, [&](const RecentDocument& known) {
    document.isPinned |= known.path == path && known.isPinned;
    return known.path == path;
  });
  list.insert(list.begin(), document);
  if (list.size() > kMost) {
    // The oldest that is not pinned goes; where all are, the oldest of those.
    const auto fromLast = std::ranges::find(list | std::views::reverse, false, &RecentDocument::isPinned);
    list.erase(fromLast == list.rend() ? std::prev(list.end()) : std::prev(fromLast.base()));
  }
  Keep(list);
}

void RecentDocuments::Pin(const std::filesystem::path& path, bool isPinned) {
  std::vector<RecentDocument> list = List();
  const auto found = std::ranges::find(list, path, &RecentDocument::path);
  if (found != list.end()) {
    found->isPinned = isPinned;
    Keep(list);
  }
}

void RecentDocuments::Remove(const std::filesystem::path& path) {
  std::vector<RecentDocument> list = List();
  std::erase_if(list, [&](const RecentDocument& known) { return known.path == path; });
  Keep(list);
}

}  // namespace scrivanta
