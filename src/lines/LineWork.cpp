#include "lines/LineWork.h"

namespace scrivanta {

LineCounts TransformLines(Workbench& workbench, const CapturedInput& input, std::u16string_view resultFileName,
                          Progress& progress, const LineTransform& transform) {
  InputLines lines(input, progress);
  ResultFile result(workbench, resultFileName);
  LineWriter writer(result);
  transform(lines.reader(), writer);
  writer.Flush();
  PutResultBack(workbench, input, result);
  return {lines.reader().number(), writer.lines()};
}

}  // namespace scrivanta
