#include "lines/CleanupHandlers.h"

#include <utility>

#include "lines/DelLinesDialog.h"
#include "lines/LineCleanup.h"
#include "lines/LineWork.h"
#include "text/DecimalText.h"

namespace scrivanta {

namespace {

struct Cleanup {
  CapturedInput input;
  LineCounts counts;
};

Cleanup RunCleanup(Workbench& workbench, std::u16string_view resultFileName, const LineTransform& transform) {
  const std::unique_ptr<BusyWork> work = workbench.StartWork();
  CapturedInput input = CaptureInput(workbench);
  const LineCounts counts = TransformLines(workbench, input, resultFileName, work->progress(), transform);
  return {std::move(input), counts};
}

// Returns how many tabs every line has now.
std::uint64_t PadTabs(Workbench& workbench) {
  const std::unique_ptr<BusyWork> work = workbench.StartWork();
  const CapturedInput input = CaptureInput(workbench);
  const std::uint64_t tabs = MostTabs(InputLines(input, work->progress()).reader());
  TransformLines(workbench, input, u"AddTabOK.txt", work->progress(),
                 [tabs](LineReader& in, LineWriter& out) { AddTabs(in, out, tabs); });
  return tabs;
}

void mnuDelEmptyLine(Workbench& workbench) {
  const Cleanup done = RunCleanup(workbench, u"DelEmptyLineOk.txt", DelEmptyLines);
  ShowDone(workbench, done.input, u"已删除空行 " + done.counts.Removed());
}

void mnuTrimLine(Workbench& workbench) {
  std::uint64_t trimmed = 0;
  const Cleanup done = RunCleanup(workbench, u"TrimLines.TXT",
                                  [&trimmed](LineReader& in, LineWriter& out) { trimmed = TrimLines(in, out); });
  ShowDone(workbench, done.input, u"已去掉 " + DecimalText(trimmed) + u" 行的首尾空格");
}

void mnuDelLineFromXtoY(Workbench& workbench, LineDialogs& dialogs) {
  DelLinesDialog dialog(workbench, CaptureInput(workbench));
  dialogs.ShowDelLines(dialog);
}

void mnuAddTAB(Workbench& workbench) {
  const std::u16string tabs = DecimalText(PadTabs(workbench));
  workbench.prompts().Ask({.text = u"各行TAB符均已经加足至" + tabs + u"个", .title = u"提示"});
}

}  // namespace

void AddCleanupCommands(CommandTable& table, LineDialogs& dialogs) {
  table.Add("mnuDelEmptyLine", {&mnuDelEmptyLine});
  table.Add("mnuTrimLine", {&mnuTrimLine});
  table.Add("mnuDelLineFromXtoY", {[&dialogs](Workbench& workbench) { mnuDelLineFromXtoY(workbench, dialogs); }});
  table.Add("mnuAddTAB", {&mnuAddTAB});
}

}  // namespace scrivanta
