// The files below folders, chosen by name.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "text/FileFailure.h"
#include "text/Progress.h"

namespace scrivanta {

// Patterns separated by ";", with * for any characters and ? for one; letter case does not count. None or "*.*" takes
// every file.
class FileFilter {
 public:
  explicit FileFilter(std::u16string_view patterns);
  bool Takes(const std::filesystem::path& file) const;

 private:
  std::vector<std::u16string> patterns_;  // upper case
};

struct WalkOptions {
  bool subfolders = true;     // all folders below those that are named
  bool folders = false;       // each folder itself too, behind what it holds; the filter does not touch it
  bool naturalOrder = false;  // of names, see NaturalOrder.h; else by code
};

struct FoundFiles {
  std::vector<std::filesystem::path> files;
  std::vector<FileFailure> failures;  // folders that could not be read
};

// The files of the folders and, unless told otherwise, of all folders below them, those of one folder in the order of
// their names; files that are named themselves are taken whatever their names. Links to folders are not followed, so
// none is met twice. Throws Interrupted.
FoundFiles WalkFiles(const std::vector<std::filesystem::path>& places, const FileFilter& filter, Progress& progress,
                     const WalkOptions& options = {});

bool IsFile(const std::filesystem::path& path);

// Leaves of every file the first path that leads to it, as the file system sees it.
void DropRepeatedFiles(std::vector<std::filesystem::path>& files);

// Leaves out those below a folder.
void DropFilesIn(const std::filesystem::path& folder, std::vector<std::filesystem::path>& files);

}  // namespace scrivanta
