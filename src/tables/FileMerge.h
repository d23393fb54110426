// The text of many files in one.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "text/Bytes.h"
#include "text/Encoding.h"
#include "text/FileFailure.h"
#include "text/FileWalk.h"
#include "text/Progress.h"

namespace scrivanta {

struct FileToMerge {
  std::filesystem::path path;
  std::u16string title;  // its name; below a folder, its path from there
};

struct FilesToMerge {
  std::vector<FileToMerge> files;
  std::vector<FileFailure> failures;  // folders that could not be read
  // A target is one of the files that were named themselves. Below a folder it is passed over without a word: it is
  // there from the last time.
  bool targetIsNamed = false;
};

struct MergePlaces {
  std::vector<std::filesystem::path> places;  // files, which are taken whatever their names, and folders
  std::u16string pattern;                     // of the names below folders, see FileFilter
  bool subfolders = false;
  std::vector<std::filesystem::path> targets;  // the files to which the result is written
};

// In the order of the places, those of a folder in natural order. Throws Interrupted.
FilesToMerge FindFilesToMerge(const MergePlaces& places, Progress& progress);

struct MergeOptions {
  bool titles = false;  // a line with the title before the lines of each file
  Encoding encoding = Encoding::kGbk;
};

// Writes the lines of all files, each ended by CR LF and each file decoded by itself. What cannot be read is passed
// over and returned. Throws FileError of the sink, Interrupted.
std::vector<FileFailure> MergeTextFiles(const std::vector<FileToMerge>& files, ByteSink& out,
                                        const MergeOptions& options, Progress& progress);

}  // namespace scrivanta
