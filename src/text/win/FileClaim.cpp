#include "text/FileClaim.h"

#include <windows.h>

#include "text/win/Handles.h"

namespace scrivanta {

struct FileClaim::Handle {
  OwnedFile file;
};

FileClaim::FileClaim(std::unique_ptr<Handle> handle) : handle_(std::move(handle)) {}

FileClaim::~FileClaim() = default;

// The system removes the file with the last handle, be the process killed.
std::unique_ptr<FileClaim> FileClaim::Take(const std::filesystem::path& path) {
  auto handle = std::make_unique<Handle>();
  handle->file.Reset(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, 0, nullptr, OPEN_ALWAYS,
                                 FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
  return handle->file ? std::make_unique<FileClaim>(std::move(handle)) : nullptr;
}

}  // namespace scrivanta
