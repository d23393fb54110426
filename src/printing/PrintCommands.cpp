#include "printing/PrintCommands.h"

#include <algorithm>

#include "text/DecimalText.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

std::u16string DocumentName(const Document& document) {
  const std::u16string name = TextOfPath(document.Path().filename());
  return name.empty() ? u"无标题" : name;
}

void Tell(Workbench& workbench, const std::u16string& text) {
  workbench.prompts().Ask({.text = text, .icon = Icon::kInformation});
}

// How many pages have been printed; nothing when the document has none of those that were asked for.
std::size_t Print(Workbench& workbench, const PrintOrder& order, const std::u16string& name, const PrintedText& text) {
  const std::unique_ptr<BusyWork> work = workbench.StartWork();
  const std::size_t pages = order.job->LayOut(text, work->progress());
  const std::size_t first = std::max<std::size_t>(order.firstPage, 1) - 1;
  const std::size_t last = order.lastPage == 0 ? pages : std::min(order.lastPage, pages);
  if (first >= last) {
    return 0;
  }
  order.job->Start(name);
  for (std::size_t page = first; page < last; ++page) {
    work->progress().Report(page - first, last - first);
    const std::u16string number = u"第 " + DecimalText(page + 1) + u" 页，共 " + DecimalText(pages) + u" 页";
    order.job->PrintPage(page, {.name = name, .number = number});
  }
  work->progress().Report(last - first, last - first);
  order.job->Finish();
  return last - first;
}

}  // namespace

void PrintUnderName(Workbench& workbench, PrintDialogs& dialogs, const std::u16string& name, const PrintedText& whole,
                    const PrintedText& selected) {
  const std::optional<PrintOrder> order =
      dialogs.AskForOrder(ReadPageSetup(workbench.settings()), !selected.text.empty());
  if (!order) {
    return;
  }
  const std::size_t printed = Print(workbench, *order, name, order->selectionOnly ? selected : whole);
  if (printed == 0) {
    Tell(workbench, u"文档没有这些页，什么也没有打印！");
  } else {
    workbench.ShowStatus(u"已打印 " + DecimalText(printed) + u" 页");
  }
}

namespace {

void mnuPrint(Workbench& workbench, PrintDialogs& dialogs) {
  Editor& editor = workbench.editor();
  const PrintedText whole{.text = editor.Text()};
  if (whole.text.empty()) {
    Tell(workbench, u"文档是空的，没有可打印的内容！");
    return;
  }
  PrintUnderName(workbench, dialogs, DocumentName(workbench.document()), whole,
                 {.text = editor.SelectedText(), .isSelection = true});
}

void mnuShowPageSetupDlg(Workbench& workbench, PrintDialogs& dialogs) {
  if (const std::optional<PageSetup> setup = dialogs.AskForSetup(ReadPageSetup(workbench.settings()))) {
    SavePageSetup(*setup, workbench.settings());
  }
}

}  // namespace

void RegisterPrintCommands(CommandTable& table, PrintDialogs& dialogs) {
  table.Add("mnuPrint", {[&dialogs](Workbench& workbench) { mnuPrint(workbench, dialogs); }});
  table.Add("mnuShowPageSetupDlg", {[&dialogs](Workbench& workbench) { mnuShowPageSetupDlg(workbench, dialogs); }});
}

}  // namespace scrivanta
