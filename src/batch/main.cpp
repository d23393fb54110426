// The process around RunBatch: arguments as UTF-8, binary streams, the interrupt key. Where the two platforms differ,
// they differ here.
#include <atomic>
#include <csignal>
#include <iostream>

#ifdef _WIN32
#include <windows.h>

#include <fcntl.h>
#include <io.h>
#else
#include <unistd.h>
#endif

#include "batch/RunBatch.h"
#include "batch/StandardStreams.h"

namespace {

// The one thing that a signal handler may touch.
std::atomic<bool> interrupted = false;

int Run(const std::vector<std::string>& arguments, bool errorsAreTerminal) {
  scrivanta::StandardInput input;
  scrivanta::StandardOutput output;
  const scrivanta::BatchStreams streams{input, output, std::cerr, errorsAreTerminal, interrupted};
  try {
    const int status = scrivanta::RunBatch(arguments, streams);
    output.Flush();
    return status;
  } catch (const std::exception& error) {
    std::cerr << "scrivanta-batch: " << error.what() << '\n';
    return 3;
  }
}

extern "C" void OnInterrupt(int) {
  interrupted = true;
}

}  // namespace

#ifdef _WIN32

int wmain(int argc, wchar_t** argv) {
  std::signal(SIGINT, OnInterrupt);
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
  SetConsoleOutputCP(CP_UTF8);
  std::vector<std::string> arguments;
  for (int i = 1; i < argc; ++i) {
    const std::u8string utf8 = std::filesystem::path(argv[i]).u8string();
    arguments.emplace_back(utf8.begin(), utf8.end());
  }
  return Run(arguments, _isatty(_fileno(stderr)) != 0);
}

#else

int main(int argc, char** argv) {
  // Without restarting: a read that waits for standard input ends when the key is pressed.
  struct sigaction action = {};
  action.sa_handler = OnInterrupt;
  sigaction(SIGINT, &action, nullptr);
  sigaction(SIGTERM, &action, nullptr);
  return Run({argv + 1, argv + argc}, isatty(STDERR_FILENO) != 0);
}

#endif
