// What the line commands of the window have in common: captured bytes through a transform into a result file.
#pragma once

#include <functional>
#include <string_view>

#include "shell/workbench/ResultFiles.h"
#include "text/LineReader.h"
#include "text/LineWriter.h"

namespace scrivanta {

using LineTransform = std::function<void(LineReader&, LineWriter&)>;

// Reads the lines of what was captured; in the window a line ends at CR LF alone.
class InputLines {
 public:
  InputLines(const CapturedInput& input, Progress& progress)
      : source_(input.bytes), reader_(source_, LineEnds::kCrLf, progress) {}

  LineReader& reader() noexcept { return reader_; }

 private:
  MemorySource source_;
  LineReader reader_;
};

// Runs the transform over the captured lines and puts its result back. Throws FileError, Interrupted; the document is
// then as it was.
void TransformLines(Workbench& workbench, const CapturedInput& input, std::u16string_view resultFileName,
                    Progress& progress, const LineTransform& transform);

}  // namespace scrivanta
