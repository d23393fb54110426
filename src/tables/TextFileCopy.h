// A text file as lines of another encoding, whatever its own is and however long it is.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "text/Encoding.h"
#include "text/LineWriter.h"
#include "text/Progress.h"

namespace scrivanta {

class TextFileCopier {
 public:
  TextFileCopier(LineWriter& out, Encoding encoding, Progress& progress)
      : out_(out), encoding_(encoding), progress_(progress) {}

  // Writes the lines of the file, each ended by CR LF; its encoding is recognised, its line ends are CR LF, LF or CR.
  // Rich text gives its text. Throws FileError, Interrupted; ExplainedError for a binary file. `beforeText` is called
  // once the file is known to be a text, before anything of it is written.
  void Copy(const std::filesystem::path& path, const std::function<void()>& beforeText);

 private:
  LineWriter& out_;
  Encoding encoding_;
  Progress& progress_;
  std::string block_;
};

}  // namespace scrivanta
