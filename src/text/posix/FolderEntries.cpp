#include "text/FolderEntries.h"

namespace scrivanta {

namespace {

FolderEntryKind KindOf(const std::filesystem::directory_entry& entry) {
  std::error_code unknown;
  if (entry.is_directory(unknown)) {
    return entry.is_symlink(unknown) ? FolderEntryKind::kLinkToFolder : FolderEntryKind::kFolder;
  }
  return entry.is_regular_file(unknown) ? FolderEntryKind::kFile : FolderEntryKind::kOther;
}

}  // namespace

std::error_code VisitFolder(const std::filesystem::path& folder,
                            const std::function<void(const std::filesystem::path&, FolderEntryKind)>& visit) {
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    visit(entry->path(), KindOf(*entry));
  }
  return error;
}

}  // namespace scrivanta
