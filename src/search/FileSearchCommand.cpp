#include "search/FileSearchCommand.h"

#include "search/FileReport.h"
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

void SearchAndReport(Workbench& workbench, const std::vector<std::filesystem::path>& places, const FileFilter& filter,
                     const FindState& state) {
  {
    const auto work = workbench.StartWork();
    const std::u16string report =
        ReportOf(SearchFiles(places, filter, state, workbench.regExpEngine(), work->progress()), state.findText);
    Editor& editor = workbench.editor();
    std::u16string text = editor.Text();
    if (!text.empty() && !text.ends_with(kLineBreak)) {
      text += kLineBreak;
    }
    const std::size_t start = text.size();
    editor.SetText(text + report);
    editor.SetSelection({{start}, report.size()});
  }
  workbench.prompts().Ask({.text = u"全部完成！", .systemModal = true});
}

}  // namespace scrivanta
