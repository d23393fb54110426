// What the line commands of the window have in common: captured bytes through a transform into a result file.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "shell/workbench/ResultFiles.h"
#include "text/DecimalText.h"
#include "text/LineReader.h"
#include "text/LineWriter.h"

namespace scrivanta {

using LineTransform = std::function<void(LineReader&, LineWriter&)>;

struct LineCounts {
  std::uint64_t read = 0;
  std::uint64_t written = 0;

  std::u16string Removed() const { return DecimalText(read - written) + u" 行"; }
};

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
LineCounts TransformLines(Workbench& workbench, const CapturedInput& input, std::u16string_view resultFileName,
                          Progress& progress, const LineTransform& transform);

}  // namespace scrivanta
