// Replacement in files, each of which is replaced in one step and keeps its encoding and line ends.
#pragma once

#include <filesystem>
#include <vector>

#include "regexp/RegExp.h"
#include "search/FindState.h"
#include "text/FileWalk.h"

namespace scrivanta {

struct FileReplaceOutcome {
  std::size_t changedFiles = 0;
  std::size_t replaced = 0;           // places in all of them
  std::size_t split = 0;              // places in rich texts that formatting parts, which stayed
  std::vector<FileFailure> leftOver;  // files in which not all was replaced, and why
  std::size_t untouchedFiles = 0;     // of these, the ones that were not reached when the user stopped the work
};

// By pattern, or plain by the lists of the texts to find and to put in their places, separated by "|". In a rich text
// only the text of the document is replaced. A file without a match is not touched, nor is one that is no text. Throws
// RegExpSyntaxError, ExplainedError for lists of unequal length, both before any file is touched. An interrupt ends the
// work between two files; the outcome tells.
FileReplaceOutcome ReplaceInFiles(const std::vector<std::filesystem::path>& files, const FindState& state,
                                  const RegExpEngine& engine, Progress& progress);

}  // namespace scrivanta
