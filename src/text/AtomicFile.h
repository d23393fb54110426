// A file of the user's is written beside its place and put there in one step: at every moment the name means the whole
// old file or the whole new one, also when the program is killed or the disk is full.
#pragma once

#include <filesystem>
#include <string_view>

#include "text/Bytes.h"

namespace scrivanta {

enum class Durability {
  kAgainstPowerCut,  // waits for the disk
  kAgainstKill,      // of the program alone: for results that can be had again
};

class AtomicFile final : public ByteSink {
 public:
  // The target may be missing; a symbolic link is followed; what the target has beside its content, such as
  // permissions, is kept. A read-only target or one that is no regular file is refused. Throws FileError, here and
  // below with the name of the target.
  explicit AtomicFile(const std::filesystem::path& target, Durability durability = Durability::kAgainstPowerCut);
  // Without a Commit everything is as it was.
  ~AtomicFile() override;

  void Write(std::string_view bytes) override;
  // What is written so far stands here, until it is in place.
  const std::filesystem::path& beside() const noexcept { return beside_; }
  // Returns when what has been written so far has reached the disk, so that Prepare need not wait for all of it.
  void Flush();
  // All that can fail short of the last step: for several files that are to be put in place together. Nothing can be
  // written afterwards.
  void Prepare();
  void Commit();

 private:
  std::filesystem::path name_;    // as it was given
  std::filesystem::path target_;  // where the links end
  std::filesystem::path beside_;  // empty once it is in place
  FileHandle file_;               // null once it is prepared
  bool replaces_ = false;         // the target is there
  Durability durability_;
};

// Removes what saves that were killed have left beside their targets in a folder, whatever instance it was. What
// another program has open, or has written within the last minute, stays.
void RemoveLeftBehind(const std::filesystem::path& folder);

// The whole of a file at once. Throws FileError.
void ReplaceFileContent(const std::filesystem::path& target, std::string_view bytes);

}  // namespace scrivanta
