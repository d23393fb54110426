// How a line command gets its input and gives its result back: through files of fixed names in the temporary folder.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/Workbench.h"

namespace scrivanta {

inline constexpr std::u16string_view kInputFileName = u"FileAutoSave.txt";

enum class WholeTextEnd { kLineBreak, kAsItStands };

// What a command works on, captured when it began: a selection, or the whole text. It stays with the command, so
// another instance that has written the file meanwhile, or a selection that has changed, does no harm.
struct CapturedInput {
  std::u16string text;  // as written to the input file
  TextRange selection;  // empty: the whole document
  std::filesystem::path file;
};

// Writes the selection as it stands, or else the whole text followed by a line break, to the input file.
CapturedInput CaptureInput(Workbench& workbench, std::u16string_view fileName = kInputFileName,
                           WholeTextEnd wholeTextEnd = WholeTextEnd::kLineBreak);
// Writes the input file again from what was captured.
void RewriteInputFile(const CapturedInput& input);

// Loads the result file, cuts one final line break off, and puts the text in place of what was captured.
void PutResultBack(Workbench& workbench, const CapturedInput& input, const std::filesystem::path& resultFile);

// The lines of the files, in order, into the target.
void MergeFiles(const std::vector<std::filesystem::path>& files, const std::filesystem::path& target,
                Progress& progress);

}  // namespace scrivanta
