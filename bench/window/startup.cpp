// Compares the program with a bare window that holds nothing but a rich edit control: how long it takes from the start
// until the window is ready, and how much memory it needs for a document.
//
//   bench_startup TURNS DOCUMENT     the best of so many turns, in turns; the document is in GBK
//   bench_startup --bare [DOCUMENT]  is the bare window
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

#include <psapi.h>

#include "shell/window/FrmMain.h"
#include "text/Bytes.h"
#include "text/Encoding.h"
#include "text/win/WideText.h"
#include "win/RichEdit.h"
#include "window/driver/FirstRun.h"
#include "window/driver/ProgramProcess.h"
#include "window/driver/TestFiles.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"

namespace scrivanta {
namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr wchar_t kBareClass[] = L"ScrivantaBareWindow";
constexpr wchar_t kBareReady[] = L"ready";
constexpr std::chrono::minutes kLongestLoad{5};

int RunBare(const wchar_t* document) {
  const OwnedLibrary library = LoadRichEditLibrary();
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
    if (message == WM_DESTROY) {
      PostQuitMessage(0);
    }
    return DefWindowProcW(window, message, wParam, lParam);
  };
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = kBareClass;
  RegisterClassW(&windowClass);
  const HWND window = CreateWindowExW(0, kBareClass, L"", WS_OVERLAPPEDWINDOW, 0, 0, 791, 584, nullptr, nullptr,
                                      windowClass.hInstance, nullptr);
  RichEdit box;
  box.Create(window, 1, WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL);
  SetWindowPos(box.handle(), nullptr, 0, 0, 775, 545, SWP_NOZORDER);
  ShowWindow(window, SW_SHOW);
  UpdateWindow(window);
  if (document != nullptr) {
    const QuietRichEdit quiet(box);
    NoProgress progress;
    box.LoadText(Decode(Encoding::kGbk, ReadBytes(document)), progress);
  }
  SetWindowTextW(window, kBareReady);
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}

// A program whose window is ready.
class Started {
 public:
  Started(const std::wstring& commandLine, const wchar_t* windowClass, std::u16string_view readyCaption) {
    const auto begin = std::chrono::steady_clock::now();
    std::wstring line = commandLine;
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process{};
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process) ==
        FALSE) {
      throw DriverFailure("cannot be started: " + Utf8(FromWide(commandLine)));
    }
    process_.Reset(process.hProcess);
    CloseHandle(process.hThread);
    WaitUntil(
        "the window to be ready",
        [&] {
          const auto windows = TopWindows(process.dwProcessId, windowClass);
          window_ = windows.empty() ? nullptr : windows.front();
          return window_ != nullptr && TextOf(window_).starts_with(readyCaption);
        },
        kLongestLoad);
    Send(window_, WM_NULL);
    time_ = std::chrono::steady_clock::now() - begin;
  }
  Started(const Started&) = delete;
  Started& operator=(const Started&) = delete;
  ~Started() {
    PostMessageW(window_, WM_CLOSE, 0, 0);
    WaitForSingleObject(process_.get(), INFINITE);
  }

  Milliseconds time() const noexcept { return time_; }
  // Committed to the process alone. Wine knows of other processes only this figure, not the private usage by its name.
  double PrivateMegabytes() const {
    PROCESS_MEMORY_COUNTERS memory{};
    memory.cb = sizeof(memory);
    GetProcessMemoryInfo(process_.get(), &memory, sizeof(memory));
    return static_cast<double>(memory.PagefileUsage) / (1U << 20U);
  }

 private:
  OwnedKernelObject process_;
  HWND window_ = nullptr;
  Milliseconds time_{};
};

struct Contestant {
  const char* name;
  std::wstring program;
  const wchar_t* windowClass;
  std::u16string readyCaption;
  std::u16string openCaption;
};

std::wstring Quoted(const std::filesystem::path& path) {
  return L'"' + path.wstring() + L'"';
}

void Compare(int turns, const std::filesystem::path& document) {
  ForgetEarlierRuns();
  const std::vector<Contestant> contestants = {
      {"the program", Quoted(ProgramProcess::BuiltProgram()), kMainWindowClass, u"Scrivanta.",
       u"Scrivanta " + document.u16string()},
      {"a bare window", Quoted(TestProgramFolder() / L"bench_startup.exe") + L" --bare", kBareClass,
       FromWide(kBareReady), FromWide(kBareReady)}};
  std::vector<Milliseconds> best(contestants.size(), Milliseconds::max());
  for (int turn = 0; turn < turns; ++turn) {
    for (std::size_t i = 0; i < contestants.size(); ++i) {
      const Started started(contestants[i].program, contestants[i].windowClass, contestants[i].readyCaption);
      best[i] = std::min(best[i], started.time());
    }
  }
  for (std::size_t i = 0; i < contestants.size(); ++i) {
    std::printf("start, %s: %.0f ms\n", contestants[i].name, best[i].count());
  }
  std::printf("start: %.2f times\n", best.front() / best.back());
  std::vector<double> needed;
  for (const Contestant& contestant : contestants) {
    double empty = 0;
    {
      const Started started(contestant.program, contestant.windowClass, contestant.readyCaption);
      empty = started.PrivateMegabytes();
    }
    const Started started(contestant.program + L' ' + Quoted(document), contestant.windowClass, contestant.openCaption);
    needed.push_back(started.PrivateMegabytes() - empty);
    std::printf("document, %s: %.0f MB more than the %.0f MB without one, open after %.1f s\n", contestant.name,
                needed.back(), empty, started.time().count() / 1000);
    std::fflush(stdout);
  }
  std::printf("document: %.2f times the memory\n", needed.front() / needed.back());
}

}  // namespace
}  // namespace scrivanta

int wmain(int argc, wchar_t** argv) {
  const std::wstring first = argc > 1 ? argv[1] : L"";
  try {
    if (first == L"--bare") {
      return scrivanta::RunBare(argc > 2 ? argv[2] : nullptr);
    }
    if (argc == 3) {
      scrivanta::Compare(std::stoi(first), std::filesystem::absolute(argv[2]));
      return 0;
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  std::fputs("usage: bench_startup TURNS DOCUMENT\n", stderr);
  return 2;
}
