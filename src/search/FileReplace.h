// Replacement in files, each of which is replaced in one step and keeps its encoding and line ends.
#pragma once

#include <filesystem>
#include <vector>

#include "search/ReplacePlan.h"
#include "search/ReplaceRule.h"
#include "text/FileFailure.h"
#include "text/Progress.h"

namespace scrivanta {

struct FileReplaceOutcome {
  struct Changed {
    std::filesystem::path path;
    std::size_t places = 0;
  };
  std::vector<Changed> changed;
  std::vector<FileFailure> leftOver;  // files in which what was planned was not done, and why
  std::size_t untouchedFiles = 0;     // of these, the ones that were not reached when the user stopped the work

  std::size_t Places() const;
};

// Does what is ticked in a plan of the same rule. A file that holds something else by now is left over. With a folder
// to keep in, all files are kept there as they are before the first is replaced (see KeptFiles.h). Throws NotKept, and
// ExplainedError while somebody else keeps there: nothing is replaced then. An interrupt ends the work between two
// files; the outcome tells.
FileReplaceOutcome CarryOut(const ReplacePlan& plan, const ReplaceRule& rule, const std::filesystem::path& keepIn,
                            Progress& progress);

}  // namespace scrivanta
