#include "system/RunLinesHandler.h"

#include <algorithm>
#include <thread>

#include "shell/workbench/ResultFiles.h"
#include "system/RunLines.h"
#include "text/DecimalText.h"
#include "text/EnvironmentText.h"
#include "text/FileFailure.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

constexpr std::size_t kMostUnasked = 10;
constexpr std::size_t kMostShown = 15;  // of each list in a message box

std::vector<RunLine> OfKind(const std::vector<RunLine>& lines, RunLineKind kind) {
  std::vector<RunLine> found;
  std::copy_if(lines.begin(), lines.end(), std::back_inserter(found),
               [kind](const RunLine& line) { return line.kind == kind; });
  return found;
}

std::u16string Listed(std::u16string_view title, const std::vector<RunLine>& lines) {
  if (lines.empty()) {
    return {};
  }
  std::u16string text(title);
  for (std::size_t index = 0; index < std::min(lines.size(), kMostShown); ++index) {
    text += u"\n第" + DecimalText(lines[index].number) + u"行：" + TextOfPath(lines[index].target);
  }
  return text + (lines.size() > kMostShown ? u"\n……共" + DecimalText(lines.size()) + u"行\n\n" : u"\n\n");
}

// Whether the lines that are there are to be opened; a few documents are, without a question.
bool IsWanted(Workbench& workbench, const std::vector<RunLine>& lines) {
  const std::vector<RunLine> missing = OfKind(lines, RunLineKind::kMissing);
  const std::vector<RunLine> programs = OfKind(lines, RunLineKind::kProgram);
  const std::size_t count = lines.size() - missing.size();
  const std::u16string lists =
      Listed(u"以下各行的文件不存在，将跳过：", missing) + Listed(u"以下各行是程序或脚本，打开就会运行：", programs);
  if (count == 0) {
    workbench.prompts().Ask(
        {.text = lists.empty() ? u"没有可以打开的行。" : lists + u"没有可以打开的行。", .icon = Icon::kInformation});
    return false;
  }
  if (lists.empty() && count <= kMostUnasked) {
    return true;
  }
  return workbench.prompts().Ask({.text = lists + u"打开" + DecimalText(count) + u"行？",
                                  .buttons = Buttons::kYesNo,
                                  .icon = programs.empty() ? Icon::kQuestion : Icon::kWarning,
                                  .defaultAnswer = programs.empty() ? Answer::kYes : Answer::kNo}) == Answer::kYes;
}

void Wait(std::chrono::milliseconds pause, std::size_t done, std::size_t total, Progress& progress) {
  constexpr std::chrono::milliseconds kStep{10};
  for (std::chrono::milliseconds waited{0}; waited < pause; waited += kStep) {
    std::this_thread::sleep_for(kStep);
    progress.Report(done, total);
  }
}

struct RunOutcome {
  std::size_t opened = 0;
  std::vector<FileFailure> failures;
  bool stopped = false;
};

RunOutcome OpenLines(Workbench& workbench, const std::vector<RunLine>& lines, std::chrono::milliseconds pause) {
  RunOutcome outcome;
  const std::unique_ptr<BusyWork> work = workbench.StartWork();
  try {
    for (std::size_t index = 0; index < lines.size(); ++index) {
      const RunLine& line = lines[index];
      if (line.kind == RunLineKind::kMissing) {
        continue;
      }
      work->progress().Report(index, lines.size());
      try {
        workbench.desktop().OpenWithDefaultProgram(line.target);
        ++outcome.opened;
      } catch (const FileError& error) {
        outcome.failures.push_back(FailureOf(line.target, error));
      }
      Wait(index + 1 < lines.size() ? pause : std::chrono::milliseconds(0), index + 1, lines.size(), work->progress());
    }
  } catch (const Interrupted&) {
    outcome.stopped = true;
  }
  return outcome;
}

void Tell(Workbench& workbench, const RunOutcome& outcome) {
  workbench.ShowStatus((outcome.stopped ? u"中途停止，已打开" : u"已打开") + DecimalText(outcome.opened) + u"行");
  if (outcome.failures.empty()) {
    return;
  }
  std::u16string text = u"以下" + DecimalText(outcome.failures.size()) + u"行没有能够打开：";
  for (std::size_t index = 0; index < std::min(outcome.failures.size(), kMostShown); ++index) {
    text += u"\n" + TextOfPath(outcome.failures[index].path) + u"（" + outcome.failures[index].reason + u"）";
  }
  workbench.prompts().Ask({.text = text, .icon = Icon::kWarning});
}

}  // namespace

void mnuRunAllLine(Workbench& workbench, std::chrono::milliseconds pause) {
  const CapturedInput input = CaptureInput(workbench, u"RunAllLines.txt");
  const std::vector<RunLine> lines =
      ReadRunLines(input.text, workbench.document().Path().parent_path(), EnvironmentText);
  if (IsWanted(workbench, lines)) {
    Tell(workbench, OpenLines(workbench, lines, pause));
  }
}

}  // namespace scrivanta
