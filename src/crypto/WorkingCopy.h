// A copy of a plaintext in the temporary folder that lives only while its ciphertext is being written.
#pragma once

#include <filesystem>
#include <string_view>

#include "text/InterprocessLock.h"

namespace scrivanta {

class WorkingCopy {
 public:
  // Waits while another instance of the program has such a copy: all of them have it under the same name.
  explicit WorkingCopy(std::filesystem::path path) : lock_("PlaintextCopy"), path_(std::move(path)) {}
  WorkingCopy(const WorkingCopy&) = delete;
  WorkingCopy& operator=(const WorkingCopy&) = delete;
  // Overwrites the file with zeros on the disk and deletes it, as far as the system lets it.
  ~WorkingCopy();

  // Throws FileError.
  void Write(std::string_view bytes) const;

 private:
  void OverwriteWithZeros() const;

  InterprocessLock lock_;
  std::filesystem::path path_;
};

}  // namespace scrivanta
