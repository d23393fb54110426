#include "lines/OrderHandlers.h"

#include "lines/LineShuffle.h"
#include "lines/LineWork.h"
#include "lines/TextStatistics.h"
#include "text/DecimalText.h"

namespace scrivanta {

namespace {

void mnuRandOrder(Workbench& workbench) {
  const auto seed = static_cast<std::uint64_t>(workbench.clock().Now().time_since_epoch().count());
  CapturedInput input;
  LineCounts counts;
  {
    const std::unique_ptr<BusyWork> work = workbench.StartWork();
    input = CaptureInput(workbench, u"RandOrderSelectedTextTmpFile.txt");
    counts = TransformLines(
        workbench, input, u"DisplayLike.txt", work->progress(),
        [&](LineReader& in, LineWriter& out) { ShuffleLines(LineStore(in), out, seed, work->progress()); });
  }
  ShowDone(workbench, input, u"已打乱 " + DecimalText(counts.written) + u" 行的次序");
}

void mnuStatistics(Workbench& workbench) {
  Editor& editor = workbench.editor();
  std::u16string message = u"当前行号：" + DecimalText(editor.CaretDisplayLine()) + u"\n";
  {
    const std::unique_ptr<BusyWork> work = workbench.StartWork();
    const CapturedInput counted = CaptureInput(workbench, u"retLineNumRuanFile.Txt", WholeTextEnd::kAsItStands);
    const bool isSelection = !counted.selection.empty();
    MemorySource bytes(counted.bytes);
    const TextStatistics statistics = CountText(bytes, LineEnds::kCrLf, kWorkFileEncoding, work->progress());
    message += isSelection ? u"所选字符数：" : u"全文字符数：";
    message += DecimalText(counted.text.size()) + u"\n";
    message += isSelection ? u"所选内容 软行数：硬行数 = " : u"全文  软行数：硬行数 = ";
    message += DecimalText(editor.CountDisplayLines(counted.text)) + u"：" + DecimalText(statistics.hardLines);
  }
  workbench.prompts().Ask({.text = message, .title = u"统计字符数", .icon = Icon::kInformation});
}

}  // namespace

void AddOrderCommands(CommandTable& table, LineDialogs& dialogs) {
  table.Add("mnuSort", {[&dialogs](Workbench& workbench) { dialogs.ShowSort(workbench); }});
  table.Add("mnuRandOrder", {&mnuRandOrder});
  table.Add("mnuStatistics", {&mnuStatistics});
}

}  // namespace scrivanta
