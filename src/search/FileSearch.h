// Search across files: which have it, how often, and where first.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "regexp/RegExp.h"
#include "search/FindState.h"
#include "text/FileWalk.h"

namespace scrivanta {

struct FileWithMatches {
  std::filesystem::path path;
  std::size_t matches = 0;
  std::size_t lineNumber = 0;  // of the first match, from 1
  std::u16string line;         // the line in which it begins; of a long one, the part around it
};

struct FileSearchResult {
  std::vector<FileWithMatches> have;
  std::vector<std::filesystem::path> haveNot;
  std::size_t binaryFiles = 0;  // passed over
  std::vector<FileFailure> failures;
};

// Files and folders; the state tells what is to be found and how: by pattern, or any of the plain texts in a list
// separated by "|", as ReplaceInFiles takes it. Throws RegExpSyntaxError, Interrupted.
FileSearchResult SearchFiles(const std::vector<std::filesystem::path>& places, const FileFilter& filter,
                             const FindState& state, const RegExpEngine& engine, Progress& progress);

}  // namespace scrivanta
