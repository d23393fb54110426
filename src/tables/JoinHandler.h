// The document joined with a second table out of a file.
#pragma once

#include <filesystem>
#include <string>

#include "tables/ConversionDialog.h"
#include "tables/TableJoin.h"

namespace scrivanta {

class TableDialogs;

// What FrmDataGuanLianHeBin holds.
struct JoinChoices {
  std::u16string file = {};  // of the second table
  std::u16string delimiter = u"TAB符";
  std::u16string secondDelimiter = u"TAB符";
  std::u16string key = u"1";
  std::u16string secondKey = {};      // empty: the same
  std::u16string columns = {};        // empty: all
  std::u16string secondColumns = {};  // empty: all but its key
  JoinKind kind = JoinKind::kLeft;
  bool hasHeader = false;
  KeyComparison comparison = {};
  bool listsUnmatched = false;  // rows of both tables without a partner into files, which are shown
};

class JoinDialog {
 public:
  explicit JoinDialog(Workbench& workbench) : dialog_(workbench, u"DataGuanLianHeBinOK.txt") {}

  // See ConversionDialog. The second table is read again only when its file is another.
  std::u16string PreviewOf(const JoinChoices& choices);
  void Run(const JoinChoices& choices);
  // The button CmdChooseSecond: the path that the user chooses, empty when it was cancelled.
  std::u16string AskForSecond();

 private:
  const std::string& SecondTable(const std::u16string& file);

  ConversionDialog dialog_;
  std::u16string secondFile_;
  std::string second_;  // in kWorkFileEncoding
};

void mnuDataGuanLianHeBin(Workbench& workbench, TableDialogs& dialogs);

}  // namespace scrivanta
