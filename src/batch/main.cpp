// The process around RunBatch: arguments as UTF-8, binary streams, and being asked to end, so that no temporary file is
// left. Where the two platforms differ, they differ here.
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

}  // namespace

#ifdef _WIN32

namespace {

const DWORD mainThread = GetCurrentThreadId();

// Called on a thread of its own. A read that waits ends at once. Ctrl+C and Ctrl+Break leave it to the work to end; for
// anything else (the console is closed) the system ends the process when this returns, so it does not return.
BOOL WINAPI OnConsoleEvent(DWORD event) {
  interrupted = true;
  const HANDLE thread = OpenThread(THREAD_TERMINATE, FALSE, mainThread);
  if (thread != nullptr) {
    CancelSynchronousIo(thread);
    CloseHandle(thread);
  }
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) {
    Sleep(INFINITE);
  }
  return TRUE;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
  SetConsoleCtrlHandler(OnConsoleEvent, TRUE);
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

namespace {

// A signal that comes just before a read begins does not end it: the next one does, which comes by itself.
extern "C" void OnSignal(int) {
  interrupted = true;
  alarm(1);
}

// Without restarting: a read that waits for standard input ends when the signal comes. What the program was started to
// ignore (nohup) it ignores.
void EndOn(int signal) {
  struct sigaction before = {};
  sigaction(signal, nullptr, &before);
  if (before.sa_handler != SIG_IGN) {
    struct sigaction action = {};
    action.sa_handler = OnSignal;
    sigaction(signal, &action, nullptr);
  }
}

}  // namespace

int main(int argc, char** argv) {
  EndOn(SIGINT);
  EndOn(SIGTERM);
  EndOn(SIGHUP);
  EndOn(SIGALRM);
  // Writing then fails, as on a full disk.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  return Run({argv + 1, argv + argc}, isatty(STDERR_FILENO) != 0);
}

#endif
