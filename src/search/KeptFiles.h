// The files of the last replacement as they were before it, in a folder, so that it can be taken back.
//
// Every run has a folder of its own below that one: the bytes of each file, and a list that tells what is whose. The
// list is written when all bytes are on the disk and before the first file is replaced; the runs before are removed
// when the first file has been. So at every moment, a kill or a power cut included, there is a way back from what was
// done last.
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "text/ExplainedError.h"
#include "text/FileClaim.h"
#include "text/FileFailure.h"
#include "text/Fingerprint.h"
#include "text/Progress.h"

namespace scrivanta {

struct KeptFile {
  std::filesystem::path path;
  Fingerprint before;
  Fingerprint after;           // what it was replaced by
  std::filesystem::path copy;  // its bytes before
};

// A file as it is could not be kept, so nothing may be replaced.
class NotKept : public ExplainedError {
 public:
  explicit NotKept(const std::exception& reason);
};

// One run, while it keeps. Nobody else keeps or puts back in the folder meanwhile.
class KeepingRun {
 public:
  // Throws ExplainedError while somebody else does, NotKept.
  explicit KeepingRun(const std::filesystem::path& folder);
  // What was not replaced is forgotten; where nothing was, the run is gone and those before stand.
  ~KeepingRun();
  KeepingRun(const KeepingRun&) = delete;
  KeepingRun& operator=(const KeepingRun&) = delete;

  // Copies the file. Its fingerprint. Throws FileError when it cannot be read, NotKept when the copy cannot be written.
  Fingerprint Keep(const std::filesystem::path& path);
  // The file that was kept last is going to hold this.
  void WillBe(const Fingerprint& after) { files_.back().after = after; }
  // The file that was kept last is not going to be replaced.
  void DropLast();
  // All files are kept: from here on they can be replaced. Throws NotKept.
  void Seal();
  const std::vector<KeptFile>& files() const noexcept { return files_; }
  // The file of this number has been replaced.
  void NoteReplaced(std::size_t file);

 private:
  std::filesystem::path folder_;
  std::unique_ptr<FileClaim> claim_;
  std::filesystem::path run_;
  std::vector<KeptFile> files_;
  std::vector<bool> replaced_;
  std::size_t copies_ = 0;
  bool removedOthers_ = false;
};

bool HasKeptFiles(const std::filesystem::path& folder);
// The files of the last run; none when nothing is kept. Throws FileError, ExplainedError for a list that is none.
std::vector<KeptFile> FilesKept(const std::filesystem::path& folder);

struct PutBackOutcome {
  std::size_t restored = 0;
  std::size_t unchanged = 0;          // they hold already what they held before
  std::vector<FileFailure> failures;  // they stay as they are, and are kept on
  std::size_t untouched = 0;          // of these, the ones that were not reached when the user stopped the work
};
// A file that holds anything else than what was put there stays. An interrupt ends the work between two files. Throws
// as FilesKept, and ExplainedError while somebody else keeps or puts back.
PutBackOutcome PutBackKept(const std::filesystem::path& folder, Progress& progress);

}  // namespace scrivanta
