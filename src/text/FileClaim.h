// Tells processes that live from those that have died: a file that one process holds and nobody else can hold
// meanwhile, on this machine or, in a shared folder, on another. Implemented in text/posix/ and in win/.
#pragma once

#include <filesystem>
#include <memory>

namespace scrivanta {

class FileClaim {
  struct Handle;

 public:
  // Makes the file when it is missing. Null while somebody holds it, this process included, or when the file cannot be
  // made. What a process held is free when it ends, however that happens.
  static std::unique_ptr<FileClaim> Take(const std::filesystem::path& path);
  explicit FileClaim(std::unique_ptr<Handle> handle);
  // Removes the file.
  ~FileClaim();
  FileClaim(const FileClaim&) = delete;
  FileClaim& operator=(const FileClaim&) = delete;

 private:
  std::unique_ptr<Handle> handle_;
};

}  // namespace scrivanta
