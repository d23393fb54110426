// The windows of the line commands, as the handlers see them: Frm... classes on the real desktop, scripts in tests.
#pragma once

namespace scrivanta {

class DelLinesDialog;
class Workbench;

class LineDialogs {
 public:
  LineDialogs() = default;
  LineDialogs(const LineDialogs&) = delete;
  LineDialogs& operator=(const LineDialogs&) = delete;
  virtual ~LineDialogs() = default;

  // FrmDelLineFromXtoY, modal: comes back when it is closed.
  virtual void ShowDelLines(DelLinesDialog& dialog) = 0;
  // FrmSortParameters, not modal: comes back at once. When it is open already it captures again and comes to the front.
  virtual void ShowSort(Workbench& workbench) = 0;
};

}  // namespace scrivanta
