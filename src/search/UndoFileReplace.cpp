#include "search/UndoFileReplace.h"

#include "search/KeptFiles.h"
#include "shell/workbench/UndoFolder.h"
#include "text/DecimalText.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kNothingKept = u"没有可以撤消的文件替换";

void mnuUndoFileReplace(Workbench& workbench) {
  const std::filesystem::path folder = KeptFolder(workbench.folders());
  const std::vector<KeptFile> kept = FilesKept(folder);
  if (kept.empty()) {
    workbench.prompts().Ask({.text = std::u16string(kNothingKept) + u"。", .icon = Icon::kInformation});
    return;
  }
  if (workbench.prompts().Ask({.text = u"上次替换了" + DecimalText(kept.size()) +
                                       u"个文件。现在还原成替换之前的样子，以后又改动过的文件不动。\n是否继续？",
                               .buttons = Buttons::kYesNo,
                               .icon = Icon::kQuestion,
                               .defaultAnswer = Answer::kNo}) != Answer::kYes) {
    return;
  }
  PutBackOutcome outcome;
  {
    const auto work = workbench.StartWork();
    outcome = PutBackKept(folder, work->progress());
  }
  workbench.ShowStatus(u"已还原" + DecimalText(outcome.restored) + u"个文件");
  if (outcome.failures.empty() && outcome.untouched == 0) {
    return;
  }
  std::u16string text;
  if (outcome.untouched > 0) {
    text = u"已中断：还有" + DecimalText(outcome.untouched) + u"个文件没有还原，可以再撤消一次。";
  }
  if (!outcome.failures.empty()) {
    text += (text.empty() ? u"没有全部还原。" : u"") +
            DescribeFailures(u"以下文件没有还原，替换之前的内容还留着：", outcome.failures) + u"\n留在：" +
            TextOfPath(FilesKept(folder).front().copy.parent_path());
  }
  workbench.prompts().Ask({.text = text, .icon = Icon::kWarning});
}

}  // namespace

std::filesystem::path KeptFolder(const Folders& folders) {
  return UndoFolder(folders) / "Replaced";
}

void RegisterUndoFileReplace(CommandTable& table, const Folders& folders) {
  table.Add("mnuUndoFileReplace",
            {.handler = &mnuUndoFileReplace,
             .available = [&folders](const WorkbenchState&) { return HasKeptFiles(KeptFolder(folders)); },
             .lacks = kNothingKept});
}

}  // namespace scrivanta
