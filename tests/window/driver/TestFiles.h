// Files of a test.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace scrivanta {

// Where the test program and the program it tests lie.
std::filesystem::path TestProgramFolder();

// A folder of the running test's own, or of the program's, empty at first and gone with it. It is also the temporary
// folder of this process, and of those that it starts, while it lives. Its name holds a blank and Chinese, as the
// folders of users do.
class TestFolder {
 public:
  TestFolder();
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;
  ~TestFolder();

  const std::filesystem::path& path() const noexcept { return path_; }
  // Where a file of that name would lie.
  std::filesystem::path operator/(const std::filesystem::path& name) const { return path_ / name; }
  // Writes a file and returns its path.
  std::filesystem::path Write(const std::filesystem::path& name, std::string_view bytes) const;

 private:
  std::filesystem::path path_;
  std::wstring temporaryBefore_;
};

void WriteBytes(const std::filesystem::path& file, std::string_view bytes);
// Throws DriverFailure when there is no such file.
std::string ReadBytes(const std::filesystem::path& file);

// The platform's own conversion, to compare the program's with. Throws DriverFailure for what code page 936 lacks.
std::string Gbk(std::u16string_view text);
std::string Utf8(std::u16string_view text);

}  // namespace scrivanta
