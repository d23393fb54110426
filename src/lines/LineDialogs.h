// The windows of the line commands, as the handlers see them: Frm... classes on the real desktop, scripts in tests.
#pragma once

namespace scrivanta {

class DelLinesDialog;

class LineDialogs {
 public:
  LineDialogs() = default;
  LineDialogs(const LineDialogs&) = delete;
  LineDialogs& operator=(const LineDialogs&) = delete;
  virtual ~LineDialogs() = default;

  // FrmDelLineFromXtoY, modal: comes back when it is closed.
  virtual void ShowDelLines(DelLinesDialog& dialog) = 0;
};

}  // namespace scrivanta
