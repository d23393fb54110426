// The companion program: built 32-bit, it opens databases with the drivers that only a 32-bit program sees. It is
// started by Scrivanta and speaks to it through its standard streams; it ends when they do.
#include <csignal>
#include <exception>

#include <fcntl.h>
#include <unistd.h>

#include "database/PipeServer.h"
#include "text/Bytes.h"

namespace {

class InputPipe final : public scrivanta::ByteSource {
 public:
  std::size_t Read(std::span<char> buffer) override {
    const auto count = read(STDIN_FILENO, buffer.data(), static_cast<unsigned>(buffer.size()));
    return count < 0 ? 0 : static_cast<std::size_t>(count);
  }
};

class OutputPipe final : public scrivanta::ByteSink {
 public:
  void Write(std::string_view bytes) override {
    while (!bytes.empty()) {
      const auto count = write(STDOUT_FILENO, bytes.data(), static_cast<unsigned>(bytes.size()));
      if (count <= 0) {
        throw scrivanta::FileError("standard output", scrivanta::LastFileError());
      }
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
  }
};

}  // namespace

int main() {
#ifdef _WIN32
  setmode(STDIN_FILENO, O_BINARY);
  setmode(STDOUT_FILENO, O_BINARY);
#else
  std::signal(SIGPIPE, SIG_IGN);
#endif
  try {
    InputPipe input;
    OutputPipe output;
    scrivanta::PipeChannel channel(input, output);
    scrivanta::ServeDatabase(channel);
    return 0;
  } catch (const std::exception&) {
    return 1;  // nobody is left to be told
  }
}
