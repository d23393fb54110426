// Printing and page setup. The dialogs and the device are behind PrintDialogs and PrintJob.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include "printing/PageSetup.h"
#include "shell/workbench/CommandTable.h"
#include "shell/workbench/Workbench.h"
#include "text/Interface.h"

namespace scrivanta {

// What is to be printed: a text, the document's or another, or that of its selection.
struct PrintedText {
  std::u16string text;
  bool isSelection = false;
};

struct PageHeader {
  std::u16string name;    // of the file; stands at the left
  std::u16string number;  // of the page; stands at the right
};

// Pages on their way to a printer. A job that ends before Finish is cancelled: nothing more comes out. Every call
// throws when the device fails.
class PrintJob : public Interface {
 public:
  // The number of pages that the text takes.
  virtual std::size_t LayOut(const PrintedText& text, Progress& progress) = 0;
  // The name is the one in the queue of the printer.
  virtual void Start(const std::u16string& name) = 0;
  // Pages count from 0.
  virtual void PrintPage(std::size_t page, const PageHeader& header) = 0;
  virtual void Finish() = 0;
};

// What the user has chosen.
struct PrintOrder {
  std::unique_ptr<PrintJob> job;
  bool selectionOnly = false;
  std::size_t firstPage = 1;  // pages count from 1 here
  std::size_t lastPage = 0;   // 0: the last one that there is
};

class PrintDialogs : public Interface {
 public:
  // Both give nothing when they are cancelled, and throw ExplainedError when there is no printer.
  virtual std::optional<PrintOrder> AskForOrder(const PageSetup& setup, bool hasSelection) = 0;
  virtual std::optional<PageSetup> AskForSetup(const PageSetup& setup) = 0;
};

// Asks for the order and prints; the name stands above each page.
void PrintUnderName(Workbench& workbench, PrintDialogs& dialogs, const std::u16string& name, const PrintedText& whole,
                    const PrintedText& selected = {});

// The dialogs outlive the table.
void RegisterPrintCommands(CommandTable& table, PrintDialogs& dialogs);

}  // namespace scrivanta
