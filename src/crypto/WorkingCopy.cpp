#include "crypto/WorkingCopy.h"

#include <algorithm>
#include <vector>

#include "text/Bytes.h"
#include "text/PlatformFile.h"

namespace scrivanta {

WorkingCopy::~WorkingCopy() {
  OverwriteWithZeros();
  RemoveFile(path_);
}

void WorkingCopy::Write(std::string_view bytes) const {
  FileSink sink(path_);
  sink.Write(bytes);
  sink.Close();
}

void WorkingCopy::OverwriteWithZeros() const {
  const FileHandle file(OpenFile(path_, OpenMode::kUpdate));
  std::uint64_t rest = file ? SizeOfFile(file.get()).value_or(0) : 0;
  if (rest == 0) {
    return;
  }
  const std::vector<char> zeros(64 * 1024);
  while (rest > 0) {
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(rest, zeros.size()));
    if (std::fwrite(zeros.data(), 1, count, file.get()) != count) {
      return;
    }
    rest -= count;
  }
  FlushToDisk(file.get());
}

}  // namespace scrivanta
