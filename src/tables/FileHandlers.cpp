#include "tables/FileHandlers.h"

#include "tables/DownloadLinks.h"
#include "tables/InitialsDialog.h"
#include "tables/MergeDialog.h"
#include "text/DecimalText.h"
#include "text/FileWalk.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kFolderKey = u"XunLeiXiaZaiListFolder";

// Empty when the user has cancelled.
std::filesystem::path AskForSource(Workbench& workbench) {
  Prompts& prompts = workbench.prompts();
  const Answer answer = prompts.Ask({.text = u"[是]从一个文件夹（包括其下的子文件夹）的所有文件中提取下载地址，[否]从一"
                                             u"个文件中提取，[取消]退出",
                                     .buttons = Buttons::kYesNoCancel,
                                     .icon = Icon::kQuestion,
                                     .defaultAnswer = Answer::kYes});
  const std::filesystem::path folder = PathOfText(workbench.settings().Get(kFolderKey));
  std::filesystem::path source;
  if (answer == Answer::kYes) {
    source = prompts.AskForFolder({.title = u"选择下载文件夹", .initialFolder = folder});
  } else if (answer == Answer::kNo) {
    source = prompts.AskForFile({.filter = u"*.cfg;*.*", .initialFolder = folder});
  }
  if (!source.empty()) {
    workbench.settings().Save(kFolderKey, TextOfPath(answer == Answer::kYes ? source : source.parent_path()));
  }
  return source;
}

void AddFiles(const FoundFiles& found, DownloadLinks& links, std::vector<FileFailure>& failures, Progress& progress) {
  for (const std::filesystem::path& file : found.files) {
    try {
      links.AddFile(file, progress);
    } catch (const FileError& error) {
      failures.push_back(FailureOf(file, error));
    }
  }
}

std::u16string LinesOf(const std::vector<std::u16string>& links) {
  std::u16string lines;
  for (const std::u16string& link : links) {
    lines += link + u"\r\n";
  }
  return lines;
}

}  // namespace

void mnuMergeFile(Workbench& workbench, TableDialogs& dialogs) {
  MergeDialog dialog(workbench);
  dialogs.ShowMergeFile(dialog);
}

void mnuJiaZiMu(Workbench& workbench, TableDialogs& dialogs) {
  InitialsDialog dialog(workbench, CaptureInput(workbench));
  dialogs.ShowJiaZiMu(dialog);
}

void mnuXunLeiXiaZaiList(Workbench& workbench) {
  const std::filesystem::path source = AskForSource(workbench);
  if (source.empty()) {
    return;
  }
  DownloadLinks links;
  std::vector<FileFailure> failures;
  {
    const std::unique_ptr<BusyWork> work = workbench.StartWork();
    const FoundFiles found = WalkFiles({source}, FileFilter(u""), work->progress(), {.naturalOrder = true});
    failures = found.failures;
    AddFiles(found, links, failures, work->progress());
    if (!links.links().empty()) {
      workbench.editor().ReplaceSelection(LinesOf(links.links()));
    }
  }
  workbench.ShowStatus(u"下载地址" + DecimalText(links.links().size()) + u"个");
  if (!failures.empty()) {
    workbench.prompts().Ask({.text = u"有文件未能读取。" + DescribeFailures(u"以下文件或文件夹未能读取：", failures),
                             .icon = Icon::kWarning});
  } else if (links.links().empty()) {
    workbench.prompts().Ask({.text = u"没有找到下载地址。", .icon = Icon::kInformation});
  }
}

}  // namespace scrivanta
