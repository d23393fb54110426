// Writes over a file from its beginning without emptying it: the tail of a longer old file stays. It is created when it
// does not exist.
#pragma once

#include "text/Bytes.h"

namespace scrivanta {

class OverwritingSink final : public ByteSink {
 public:
  // Throws FileError, as the others do.
  explicit OverwritingSink(const std::filesystem::path& path);
  void Write(std::string_view bytes) override;
  // Reports what a late write could not do; without it such an error is lost.
  void Close();

 private:
  std::filesystem::path path_;
  FileHandle file_;
};

}  // namespace scrivanta
