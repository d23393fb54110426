#include "search/FileSearchCommand.h"

#include "search/TextRanges.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kLineBreak = u"\r\n";
constexpr std::u16string_view kFolderKey = u"FindInFileFolder";
constexpr std::u16string_view kFilterKey = u"FindInFileFilter";
constexpr std::u16string_view kAllFiles = u"*.*";

}  // namespace

std::filesystem::path AskForFolderToSearch(Workbench& workbench) {
  std::filesystem::path folder = workbench.prompts().AskForFolder(
      {.title = u"选择要查找的文件夹（包括其下的子文件夹）", .initialFolder = workbench.settings().Get(kFolderKey)});
  if (!folder.empty()) {
    workbench.settings().Save(kFolderKey, TextOfPath(folder));
  }
  return folder;
}

std::u16string AskForFileFilter(Workbench& workbench) {
  const std::u16string kept = workbench.settings().Get(kFilterKey);
  const std::u16string filter =
      workbench.prompts().Input({.prompt = u"输入要查找的文件类型，如：*.txt;*.rtf（所有文件：*.*）：",
                                 .preset = kept.empty() ? std::u16string(kAllFiles) : kept});
  if (!filter.empty()) {
    workbench.settings().Save(kFilterKey, filter);
  }
  return filter;
}

std::vector<std::filesystem::path> PathsInEditor(const Editor& editor, PathLines which) {
  const std::u16string text = editor.Text();
  const TextRange selection = editor.Selection();
  const TextRange lines = selection.empty() ? TextRange{{0}, text.size()} : WholeLines(text, selection);
  return PathsOfLines(std::u16string_view(text).substr(lines.start.value, lines.length), which);
}

void SearchAndReport(Workbench& workbench, const std::vector<std::filesystem::path>& places, const FileFilter& filter,
                     const FindState& state) {
  {
    const auto work = workbench.StartWork();
    const std::u16string report =
        ReportOf(SearchFiles(places, filter, state, workbench.regExpEngine(), work->progress()), state.findText);
    Editor& editor = workbench.editor();
    const std::u16string text = editor.Text();
    const bool endsInLine = !text.empty() && !text.ends_with(kLineBreak);
    const std::u16string_view gap = endsInLine ? kLineBreak : std::u16string_view();
    editor.SetSelection({{text.size()}, 0});
    editor.ReplaceSelection(std::u16string(gap) + report);
    editor.SetSelection({{text.size() + gap.size()}, report.size()});
  }
  workbench.prompts().Ask({.text = u"全部完成！", .systemModal = true});
}

}  // namespace scrivanta
