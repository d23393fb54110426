// A folder of a test's own, gone with it.
#pragma once

#include <filesystem>
#include <random>
#include <string>
#include <string_view>

#include "text/Bytes.h"

namespace scrivanta::testing {

class TemporaryFolder {
 public:
  TemporaryFolder()
      : path_(std::filesystem::temp_directory_path() / ("scrivanta-test-" + std::to_string(std::random_device{}()))) {
    std::filesystem::create_directories(path_);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::filesystem::path& path() const { return path_; }
  // Writes a file into the folder and returns its path.
  std::filesystem::path Put(const std::filesystem::path& name, std::string_view bytes) const {
    FileSink sink(path_ / name);
    sink.Write(bytes);
    sink.Close();
    return path_ / name;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace scrivanta::testing
