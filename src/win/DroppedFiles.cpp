#include "win/DroppedFiles.h"

#include <cstddef>
#include <string>

namespace scrivanta {

std::vector<std::filesystem::path> TakeDroppedFiles(HDROP drop) {
  std::vector<std::filesystem::path> paths(DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0));
  for (UINT i = 0; i < paths.size(); ++i) {
    std::wstring path(DragQueryFileW(drop, i, nullptr, 0) + std::size_t{1}, L'\0');
    path.resize(DragQueryFileW(drop, i, path.data(), static_cast<UINT>(path.size())));
    paths[i] = path;
  }
  DragFinish(drop);
  return paths;
}

}  // namespace scrivanta
