// How a line command gets its input and gives its result back: through files of fixed names in the temporary folder.
//
// All instances of a user share these names. So a command works on what it has captured and gives back what it has
// itself written, both held in memory: the files hold the same text for whoever looks at them, and nobody here reads
// them again.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "shell/workbench/Workbench.h"
#include "text/Bytes.h"
#include "text/Encoding.h"

namespace scrivanta {

inline constexpr std::u16string_view kInputFileName = u"FileAutoSave.txt";

// Of all files in the temporary folder.
inline constexpr Encoding kWorkFileEncoding = Encoding::kGbk;

enum class WholeTextEnd { kLineBreak, kAsItStands };

// What a command works on, captured when it began: a selection, or the whole text. A selection that has changed
// meanwhile does no harm.
struct CapturedInput {
  std::u16string text;  // as written to the input file
  std::string bytes;    // the same in kWorkFileEncoding
  TextRange selection;  // empty: the whole document
  std::filesystem::path file;
  // Whether the text ends in a line break that is none of the document's.
  bool endsInAddedLineBreak = false;

  // What stands in the document.
  std::u16string_view OwnText() const;
  // Whether a selection was captured with the break of its last line, which what follows must not be joined to.
  bool IsSelectionOfWholeLines() const;
};

// Writes the selection as it stands, or else the whole text followed by a line break, to the input file. Throws
// FileError.
CapturedInput CaptureInput(Workbench& workbench, std::u16string_view fileName = kInputFileName,
                           WholeTextEnd wholeTextEnd = WholeTextEnd::kLineBreak);
// Adds a line break to what was captured, and writes the input file again. Throws FileError.
void AddLineBreak(CapturedInput& input);
// Writes the input file again from what was captured: for a dialog that has been open meanwhile. Throws FileError.
void RewriteInputFile(const CapturedInput& input);

// A file that a command writes into the temporary folder. Its bytes stay here and reach the disk with Save.
class ResultFile final : public ByteSink {
 public:
  ResultFile(Workbench& workbench, std::u16string_view fileName);

  void Write(std::string_view bytes) override { bytes_.append(bytes); }
  const std::string& bytes() const noexcept { return bytes_; }
  const std::filesystem::path& path() const noexcept { return path_; }
  // Replaces what the file held. Throws FileError.
  void Save() const;

 private:
  std::filesystem::path path_;
  std::string bytes_;
};

// Saves the result, whose lines all end with a line break, and puts it in place of what was captured, without its last
// line break unless whole lines were selected. Throws FileError.
void PutResultBack(Workbench& workbench, const CapturedInput& input, const ResultFile& result);
// Saves the text as the result file and puts it, as it is, in place of what was captured. Throws FileError.
void PutTextBack(Workbench& workbench, const CapturedInput& input, std::u16string_view fileName,
                 std::u16string_view text);

// Says what a command has done, and that it was done to a part of a line where that was captured.
void ShowDone(Workbench& workbench, const CapturedInput& input, std::u16string remark);

// The lines of the parts, in order, into the target, each ended by a line break.
void MergeFiles(const std::vector<const ResultFile*>& parts, ResultFile& target, Progress& progress);

}  // namespace scrivanta
