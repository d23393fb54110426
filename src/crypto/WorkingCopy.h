// A copy of a plaintext in the temporary folder that lives only while its ciphertext is being written.
#pragma once

#include <filesystem>
#include <string_view>

namespace scrivanta {

class WorkingCopy {
 public:
  explicit WorkingCopy(std::filesystem::path path) : path_(std::move(path)) {}
  WorkingCopy(const WorkingCopy&) = delete;
  WorkingCopy& operator=(const WorkingCopy&) = delete;
  // Overwrites the file with zeros on the disk and deletes it, as far as the system lets it.
  ~WorkingCopy();

  // Throws FileError.
  void Write(std::string_view bytes) const;

 private:
  void OverwriteWithZeros() const;

  std::filesystem::path path_;
};

}  // namespace scrivanta
