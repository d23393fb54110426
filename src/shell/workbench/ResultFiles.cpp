#include "shell/workbench/ResultFiles.h"

#include "shell/workbench/ReplaceSelected.h"
#include "text/AtomicFile.h"
#include "text/DecimalText.h"
#include "text/LineReader.h"
#include "text/LineWriter.h"
#include "text/StandIns.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kLineBreak = u"\r\n";

// The file is put in place whole, so that two instances that write it at the same moment do not stop each other.
void WriteFile(const std::filesystem::path& path, std::string_view bytes) {
  AtomicFile file(path, Durability::kAgainstKill);
  file.Write(bytes);
  file.Commit();
}

void ReplaceCaptured(Workbench& workbench, const CapturedInput& input, std::u16string_view text) {
  Editor& editor = workbench.editor();
  if (input.selection.empty()) {
    editor.SetText(text);
    return;
  }
  if (editor.Selection() != input.selection) {
    editor.SetSelection(input.selection);
  }
  ReplaceSelected(editor, text);
}

}  // namespace

std::u16string_view CapturedInput::OwnText() const {
  const std::u16string_view own = text;
  return endsInAddedLineBreak ? own.substr(0, own.size() - kLineBreak.size()) : own;
}

bool CapturedInput::IsSelectionOfWholeLines() const {
  return !selection.empty() && OwnText().ends_with(kLineBreak);
}

CapturedInput CaptureInput(Workbench& workbench, std::u16string_view fileName, WholeTextEnd wholeTextEnd) {
  const Editor& editor = workbench.editor();
  CapturedInput input;
  input.selection = editor.Selection();
  if (input.selection.empty()) {
    input.text = editor.Text();
    if (wholeTextEnd == WholeTextEnd::kLineBreak) {
      input.text += kLineBreak;
      input.endsInAddedLineBreak = true;
    }
  } else {
    input.text = editor.SelectedText();
  }
  input.bytes = StandIns(kWorkFileEncoding, input.text).Encode(input.text);
  input.file = workbench.folders().temporary / fileName;
  RewriteInputFile(input);
  return input;
}

void AddLineBreak(CapturedInput& input) {
  input.text += kLineBreak;
  input.bytes += Encode(kWorkFileEncoding, kLineBreak);
  input.endsInAddedLineBreak = true;
  RewriteInputFile(input);
}

void RewriteInputFile(const CapturedInput& input) {
  WriteFile(input.file, input.bytes);
}

ResultFile::ResultFile(Workbench& workbench, std::u16string_view fileName)
    : path_(workbench.folders().temporary / fileName) {}

void ResultFile::Save() const {
  WriteFile(path_, bytes_);
}

void PutResultBack(Workbench& workbench, const CapturedInput& input, const ResultFile& result) {
  result.Save();
  std::u16string text = StandIns(kWorkFileEncoding, input.text).Decode(result.bytes());
  if (text.ends_with(kLineBreak) && !input.IsSelectionOfWholeLines()) {
    text.resize(text.size() - kLineBreak.size());
  }
  ReplaceCaptured(workbench, input, text);
}

void PutTextBack(Workbench& workbench, const CapturedInput& input, std::u16string_view fileName,
                 std::u16string_view text) {
  ResultFile result(workbench, fileName);
  result.Write(StandIns(kWorkFileEncoding, text).Encode(text));
  result.Save();
  ReplaceCaptured(workbench, input, text);
}

void ShowDone(Workbench& workbench, const CapturedInput& input, std::u16string remark) {
  if (!input.selection.empty() && input.OwnText().find(kLineBreak) == std::u16string_view::npos) {
    remark += u"（只处理了所选的 " + DecimalText(input.selection.length) + u" 个字符）";
  }
  workbench.ShowStatus(remark);
}

void MergeFiles(const std::vector<const ResultFile*>& parts, ResultFile& target, Progress& progress) {
  LineWriter writer(target);
  for (const ResultFile* part : parts) {
    MemorySource source(part->bytes());
    LineReader reader(source, LineEnds::kCrLf, progress);
    while (reader.Next()) {
      writer.WriteLine(reader.line());
    }
  }
  writer.Flush();
}

}  // namespace scrivanta
