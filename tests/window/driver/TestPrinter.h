// A printer of the test's own: the only one, and gone with it. What is printed comes out as PostScript in a file.
#pragma once

#include <windows.h>

#include <filesystem>
#include <optional>
#include <string>

#include "window/driver/TestFiles.h"

namespace scrivanta {

// What a printer has put out.
struct PrintedOutput {
  std::string title;
  std::size_t pages = 0;
  bool landscape = false;
};

class TestPrinter {
 public:
  // Throws DriverFailure when it cannot be installed.
  explicit TestPrinter(const TestFolder& folder);
  TestPrinter(const TestPrinter&) = delete;
  TestPrinter& operator=(const TestPrinter&) = delete;
  ~TestPrinter();

  // Whether the machine has a printer without this.
  static bool IsAnyInstalled();

  // What came out last, once it is there whole; the file is gone then.
  PrintedOutput TakeOutput() const;
  bool HasOutput() const { return std::filesystem::exists(output_); }
  const std::filesystem::path& output() const noexcept { return output_; }

 private:
  std::filesystem::path output_;
  HANDLE printer_ = nullptr;
};

}  // namespace scrivanta
