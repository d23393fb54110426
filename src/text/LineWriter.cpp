#include "text/LineWriter.h"

namespace scrivanta {

namespace {

constexpr std::size_t kBlockSize = 256 * 1024;

}  // namespace

void LineWriter::WriteLine(std::string_view line) {
  WriteRaw(line);
  gathered_.append("\r\n", 2);
  ++lines_;
}

void LineWriter::WriteRaw(std::string_view bytes) {
  if (gathered_.size() + bytes.size() > kBlockSize) {
    Flush();
  }
  if (bytes.size() > kBlockSize) {
    sink_.Write(bytes);
  } else {
    gathered_.append(bytes);
  }
}

void LineWriter::Flush() {
  sink_.Write(gathered_);
  gathered_.clear();
}

}  // namespace scrivanta
