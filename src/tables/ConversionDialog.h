// What the windows of this subsystem that turn the captured text into another have in common, without the windows.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "shell/workbench/ResultFiles.h"
#include "text/LineWriter.h"

namespace scrivanta {

// Turns bytes in kWorkFileEncoding into others and returns what to say about it in the status bar. Throws what cannot
// be done as an ExplainedError.
using Conversion = std::function<std::u16string(std::string_view input, LineWriter& out, Progress& progress)>;

// Of a text the whole lines at its beginning that a preview looks at.
std::string_view BeginningOf(std::string_view bytes);

class ConversionDialog {
 public:
  // Captures the input: the selection or the whole text. Throws FileError.
  ConversionDialog(Workbench& workbench, std::u16string_view resultFileName)
      : workbench_(workbench), input_(CaptureInput(workbench)), resultFileName_(resultFileName) {}

  // The first lines of the result, or why there is none. Of a long text only the beginning is converted, so what
  // depends on all of it (the widest line) may come out otherwise.
  std::u16string PreviewOf(const Conversion& conversion) const;
  // Converts what was captured and puts it back. What the conversion throws leaves everything as it was.
  void Run(const Conversion& conversion);

  Workbench& workbench() noexcept { return workbench_; }
  const std::string& input() const noexcept { return input_.bytes; }

 private:
  Workbench& workbench_;
  CapturedInput input_;
  std::u16string resultFileName_;
};

}  // namespace scrivanta
