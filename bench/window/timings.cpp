// Times the program at work on a large document, each step beside what the bare edit control needs for its part of it:
// to take in the text once, or to give it back once.
//
//   bench_timings DOCUMENT
//
// The document is a plain GBK text with empty lines; it is saved as it was. Processor seconds tell more than those of
// the wall where other work goes on.
#include <windows.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <thread>

#include <psapi.h>

#include "ScrivantaApp.h"
#include "shell/history/TextMirror.h"
#include "shell/window/FrmMainControls.h"
#include "shell/window/MenuTree.h"
#include "text/DocumentFormat.h"
#include "text/Progress.h"
#include "win/Handles.h"
#include "win/RichEdit.h"
#include "window/driver/Drop.h"
#include "window/driver/EditBoxDriver.h"
#include "window/driver/FirstRun.h"
#include "window/driver/TestFiles.h"
#include "window/driver/Wait.h"

namespace scrivanta {
namespace {

constexpr double kMegabyte = 1 << 20U;

struct Cost {
  double processor = 0;  // seconds, of all threads of the process
  double wall = 0;       // seconds

  friend Cost operator+(Cost a, Cost b) { return {a.processor + b.processor, a.wall + b.wall}; }
  friend Cost operator-(Cost a, Cost b) { return {a.processor - b.processor, a.wall - b.wall}; }
};

double Seconds(FILETIME time) {
  constexpr double kTick = 1e-7;
  return static_cast<double>(ULARGE_INTEGER{{time.dwLowDateTime, time.dwHighDateTime}}.QuadPart) * kTick;
}

Cost CostSoFar() {
  FILETIME created{};
  FILETIME ended{};
  FILETIME kernel{};
  FILETIME user{};
  GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
  return {Seconds(kernel) + Seconds(user),
          std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count()};
}

Cost CostOf(const std::function<void()>& work) {
  const Cost before = CostSoFar();
  work();
  return CostSoFar() - before;
}

double MemoryNow() {
  PROCESS_MEMORY_COUNTERS counters{};
  K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters));
  return static_cast<double>(counters.WorkingSetSize) / kMegabyte;
}

void Print(const char* step, Cost program, Cost bare) {
  std::printf("%-22s %7.2f s (%6.2f s wall)   bare control %7.2f s (%6.2f s wall)   %.2f times\n", step,
              program.processor, program.wall, bare.processor, bare.wall, program.processor / bare.processor);
  std::fflush(stdout);
}

void PrintMemory(const char* step, double program, double bare) {
  std::printf("%-22s %7.1f MB                   bare control %7.1f MB                   %.2f times\n", step, program,
              bare, program / bare);
}

// A window with nothing but the control, as large as the program's and in the same font.
class BareControl {
 public:
  BareControl() {
    window_.Reset(CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, kWidth, kHeight, nullptr,
                                  nullptr, nullptr, nullptr));
    box_.Create(window_.get(), RichTextBox1,
                WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | WS_BORDER | ES_MULTILINE | ES_AUTOHSCROLL | ES_AUTOVSCROLL);
    MoveWindow(box_.handle(), 0, 0, kWidth, kHeight, TRUE);
    CHARFORMAT2W format = box_.DefaultFormat();
    format.dwMask = CFM_FACE | CFM_SIZE | CFM_CHARSET;
    format.bCharSet = GB2312_CHARSET;
    format.yHeight = 210;  // twips
    std::wstring_view(L"宋体").copy(format.szFaceName, LF_FACESIZE);
    format.szFaceName[2] = L'\0';
    box_.SetDefaultFormat(format);
    box_.SetFormatOfAll(format);
  }

  void Load(std::u16string_view text) {
    NoProgress progress;
    {
      const QuietRichEdit quiet(box_);
      box_.LoadText(text, progress);
    }
    UpdateWindow(box_.handle());
  }
  std::size_t Read() const { return box_.Text().size(); }
  HWND box() const { return box_.handle(); }

 private:
  static constexpr int kWidth = 791;  // pixels; the program's first window is 11865 twips wide and 8760 high
  static constexpr int kHeight = 584;

  OwnedLibrary library_ = LoadRichEditLibrary();
  OwnedWindow window_;
  RichEdit box_;
};

// The caret at places all over the text; milliseconds of the wall for each, until all that follows it is drawn.
double MeasureCaret(HWND box, std::size_t length) {
  constexpr std::size_t kMoves = 200;
  constexpr double kMilliseconds = 1000;
  const Cost cost = CostOf([&] {
    for (std::size_t i = 0; i < kMoves; ++i) {
      const std::size_t place = length * ((i * 7) % kMoves) / kMoves;  // not in order
      SendMessageW(box, EM_SETSEL, place, static_cast<LPARAM>(place));
      RedrawWindow(GetParent(box), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    }
  });
  return cost.wall * kMilliseconds / kMoves;
}

// Seconds from now until the first page of a document stands in the window; to be asked on a thread of its own.
double MeasureFirstPage(HWND window) {
  const auto start = std::chrono::steady_clock::now();
  WaitUntil("the first page", [window] { return IsWindowVisible(GetDlgItem(window, RichTextBox0)) != FALSE; });
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// What the bare control needs for the document.
struct BareCosts {
  Cost load;
  Cost read;
  double caret = 0;   // milliseconds
  double memory = 0;  // megabytes
};

BareCosts MeasureBare(std::u16string_view text) {
  BareControl control;
  control.Load(u"x");  // what the first text costs, such as looking for fonts, is no part of it
  const double memory = MemoryNow();
  BareCosts costs;
  costs.load = CostOf([&] { control.Load(text); });
  costs.memory = MemoryNow() - memory;
  costs.caret = MeasureCaret(control.box(), text.size());
  costs.read = CostOf([&] {
    if (control.Read() < text.size()) {
      throw DriverFailure("the bare control does not hold the text");
    }
  });
  return costs;
}

// The program, on a thread of this process: of other processes not every system tells the time.
class Program {
 public:
  Program() : thread_([this] { RunApp(GetModuleHandleW(nullptr), {}, &window_); }) {
    WaitUntil("the program's window", [this] { return window_ != nullptr; });
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  ~Program() {
    PostMessageW(window_, WM_CLOSE, 0, 0);
    thread_.join();
  }

  // These return when all is done and drawn: none of the commands asks anything.
  void Open(const std::filesystem::path& document) const {
    Send(WM_DROPFILES, reinterpret_cast<WPARAM>(MakeDrop({document})));
  }
  void Run(std::string_view controlName) const { Send(WM_COMMAND, static_cast<WPARAM>(*MenuCommandId(controlName))); }
  void TypeHereAndThere(int times, LONG length) const {
    for (int i = 0; i < times; ++i) {
      const auto place = static_cast<WPARAM>(static_cast<LONGLONG>(length) * i / times);
      SendMessageW(Box(), EM_SETSEL, place, static_cast<LPARAM>(place));
      SendMessageW(Box(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"改"));
    }
  }
  std::u16string Text() const { return EditBoxDriver(Box()).Text(); }
  HWND window() const { return window_; }
  double MeasureCaret(std::size_t length) const { return scrivanta::MeasureCaret(Box(), length); }

 private:
  HWND Box() const { return GetDlgItem(window_, RichTextBox1); }
  void Send(UINT message, WPARAM wParam) const {
    SendMessageW(window_, message, wParam, 0);
    RedrawWindow(window_, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  }

  std::atomic<HWND> window_{nullptr};
  std::thread thread_;
};

void Measure(const std::filesystem::path& document) {
  constexpr int kSteps = 1000;
  const std::string bytes = ReadBytes(document);
  const std::u16string text = ToControlText(DecodeDocument(bytes).text);
  std::printf("%.1f MB, %zu characters, %zu lines\n", static_cast<double>(bytes.size()) / 1e6, text.size(),
              static_cast<std::size_t>(std::count(text.begin(), text.end(), u'\r')));
  const BareCosts bare = MeasureBare(text);
  const Program program;
  const std::filesystem::path small = std::filesystem::path(document).replace_filename("small.txt");
  WriteBytes(small, "x\r\n\r\n");
  program.Open(small);  // what is needed once only is no part of what follows
  program.Run("mnuDelEmptyLine");
  program.Run("mnuSave");

  const double before = MemoryNow();
  double firstPage = 0;
  std::thread reader([&] { firstPage = MeasureFirstPage(program.window()); });
  Print("open", CostOf([&] { program.Open(document); }), bare.load);
  reader.join();
  std::printf("the first page can be read after %.2f s\n", firstPage);
  PrintMemory("memory", MemoryNow() - before, bare.memory);
  std::printf("a move of the caret takes %.2f ms, in the bare control %.2f ms\n", program.MeasureCaret(text.size()),
              bare.caret);
  Print("remove empty lines", CostOf([&] { program.Run("mnuDelEmptyLine"); }), bare.read + bare.load);
  Print("undo", CostOf([&] { program.Run("mnuUndo"); }), bare.load);
  Print("save", CostOf([&] { program.Run("mnuSave"); }), bare.read);
  if (ReadBytes(document) != bytes || ToControlText(program.Text()) != text) {
    throw DriverFailure("the document is not as it was");
  }
  const double beforeSteps = MemoryNow();
  program.TypeHereAndThere(kSteps, static_cast<LONG>(text.size()));
  std::printf("%d steps of undo take %.1f MB\n", kSteps, MemoryNow() - beforeSteps);
  program.Run("mnuSave");
  WriteBytes(document, bytes);
}

}  // namespace
}  // namespace scrivanta

int wmain(int argc, wchar_t** argv) {
  if (argc != 2) {
    std::fputs("usage: bench_timings DOCUMENT\n", stderr);
    return 2;
  }
  try {
    scrivanta::ForgetEarlierRuns();
    scrivanta::Measure(argv[1]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}
