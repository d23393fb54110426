// What a folder holds, however long its path is. Implemented in text/posix/ and in text/win/.
#pragma once

#include <filesystem>
#include <functional>
#include <system_error>

namespace scrivanta {

enum class FolderEntryKind {
  kFile,
  kFolder,
  kLinkToFolder,  // it stands for a folder elsewhere; following it may lead in a circle
  kOther,
};

// In no order. What the visitor throws comes out. The error says why not all could be visited.
std::error_code VisitFolder(const std::filesystem::path& folder,
                            const std::function<void(const std::filesystem::path&, FolderEntryKind)>& visit);

}  // namespace scrivanta
