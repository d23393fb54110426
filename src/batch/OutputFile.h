// A file that a command writes: nothing of it is seen before the command has succeeded.
#pragma once

#include <filesystem>
#include <memory>
#include <vector>

#include "text/AtomicFile.h"
#include "text/Bytes.h"
#include "text/Spool.h"

namespace scrivanta {

class OutputFile final : public ByteSink {
 public:
  // A regular file, or one that does not exist, is written beside its target; anything else (a device, a pipe) is
  // written straight, after the work. Throws FileError.
  explicit OutputFile(const std::filesystem::path& target);

  void Write(std::string_view bytes) override;
  // The files that the work must not read: the target and what stands beside it.
  std::vector<std::filesystem::path> Files() const;
  // Everything that can fail short of putting the file in place.
  void Prepare();
  void Commit();

 private:
  std::filesystem::path target_;
  // One of the two.
  std::unique_ptr<AtomicFile> file_;
  std::unique_ptr<Spool> spool_;
};

}  // namespace scrivanta
