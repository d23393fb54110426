// Measures whether the window answers while commands work, and how soon Esc stops them: each command once to its end,
// while another thread asks the window all the time whether it is there, and then again, stopped at several moments.
// scripts/bench.sh stopping
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "lines/FrmDelLineFromXtoYControls.h"
#include "search/FrmFindControls.h"
#include "text/win/WideText.h"
#include "win/InputBoxControls.h"
#include "window/driver/App.h"
#include "window/driver/FirstRun.h"
#include "window/driver/Keyboard.h"
#include "window/driver/TestFiles.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"

namespace scrivanta {
namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

// Presses a button of the dialog that has it, which is waited for; before that types texts into boxes of it.
struct Press {
  int button = 0;
  std::vector<std::pair<int, std::u16string>> texts = {};
};

// Of dialogs whose headers cannot be included beside the others.
constexpr int kSort = 3864;
constexpr int kWorkbenchPattern = 4201;
constexpr int kWorkbenchTest = 4202;

struct Command {
  const char* name;
  const char* menu;
  std::vector<Press> presses = {};
};

Press Input(std::u16string text) {
  return {.button = IDOK, .texts = {{IDC_INPUT_VALUE, std::move(text)}}};
}

std::vector<Command> Commands() {
  const Press yes{.button = IDYES};
  const Press no{.button = IDNO};
  return {
      {"remove empty lines", "mnuDelEmptyLine"},
      {"trim lines", "mnuTrimLine"},
      {"add tabs", "mnuAddTAB"},
      {"delete lines", "mnuDelLineFromXtoY", {{CmdFrmDelLineFromXtoY, {{TxtDelLineStart, u"9"}}}}},
      {"filter lines", "mnuFilterNeedLine", {Input(u"7"), no}},
      {"filter lines by pattern", "mnuFilterNeedLine", {Input(u"\\d+"), yes}},
      {"repeated lines", "mnuFilterRepeatLine", {no, yes, no}},
      {"repeats in a row", "mnuFilterContinueRepeatLine", {yes}},
      {"shuffle", "mnuRandOrder"},
      {"sort", "mnuSort", {{kSort}}},
      {"statistics", "mnuStatistics"},
      {"extract pattern", "mnuRegGet", {Input(u"\\d+")}},
      {"find all", "mnuFind", {{CmdFindAll, {{Combo1, u"7"}}}}},
      {"replace all", "mnuFind", {{CmdReplaceAll, {{Combo1, u"7"}, {Combo2, u"七"}}}}},
      {"test a pattern", "mnuRegTest", {{kWorkbenchTest, {{kWorkbenchPattern, u"7"}}}}},
  };
}

std::u16string MakeText(std::size_t lines) {
  std::u16string text;
  unsigned random = 1;
  for (std::size_t i = 0; i < lines; ++i) {
    random = random * 1'103'515'245U + 12'345U;
    const std::size_t length = (random >> 16U) % 40;
    text.append(random % 3, u' ').append(length, static_cast<char16_t>(u'一' + (random >> 20U) % 900));
    if (length > 5) {
      for (const char digit : std::to_string(random % 5000)) {
        text.push_back(static_cast<char16_t>(digit));
      }
    }
    text.append(u"\r\n");
  }
  return text;
}

class Bench {
 public:
  Bench(App& app, std::filesystem::path document) : app_(app), document_(std::move(document)) { app_.Start(); }

  void Run(std::string_view only) {
    std::printf("%-26s %9s %9s   %s\n", "milliseconds", "to end", "silence", "from Esc to the end");
    const auto [duration, silence] = TimeWhole([this] { app_.Drop({document_}); });
    std::printf("%-26s %9.0f %9.0f\n", "open", duration, silence);
    for (const Command& command : Commands()) {
      Measure(command.name, only, [&] { Start(command); });
    }
  }

 private:
  template <typename Begin>
  void Measure(const std::string& name, std::string_view only, Begin begin) {
    if (!only.empty() && only != name) {
      return;
    }
    const std::u16string text = app_.Text();
    const auto [duration, silence] = TimeWhole(begin);
    const bool changed = app_.MenuEntry("mnuUndo").enabled;
    std::pair<double, double> undo;
    if (changed) {
      undo = TimeWhole([this] { app_.StartMenu("mnuUndo"); });
      if (app_.Text() != text) {
        throw DriverFailure("undo has not brought the text back");
      }
    }
    std::printf("%-26s %9.0f %9.0f  ", name.c_str(), duration, silence);
    if (duration > 1000) {
      for (const double part : {0.1, 0.3, 0.5, 0.7, 0.9}) {
        PrintStop(begin, text, Milliseconds(duration * part));
      }
    }
    if (changed) {
      std::printf("   (undo %.0f, silence %.0f)", undo.first, undo.second);
    }
    std::printf("\n");
    std::fflush(stdout);
  }

  // Milliseconds: how long the work takes, and how long at most the window has not answered.
  template <typename Begin>
  std::pair<double, double> TimeWhole(Begin begin) {
    double longest = 0;
    const auto start = Clock::now();
    {
      const std::jthread asking([&longest, window = app_.MainWindow()](const std::stop_token& stop) {
        while (!stop.stop_requested()) {
          const auto asked = Clock::now();
          SendMessageW(window, WM_NULL, 0, 0);
          longest = std::max(longest, Milliseconds(Clock::now() - asked).count());
          Sleep(1);
        }
      });
      begin();
      app_.Settle();
    }
    const double duration = Milliseconds(Clock::now() - start).count();
    CloseBoxes();
    return {duration, longest};
  }

  template <typename Begin>
  void PrintStop(Begin begin, std::u16string_view text, Milliseconds moment) {
    const auto start = Clock::now();
    begin();
    std::this_thread::sleep_until(start + moment);
    if (IsWindowEnabled(app_.Editor().window()) != FALSE) {
      std::printf(" ended");
    } else {
      const auto pressed = Clock::now();
      PressKeys("Esc");
      app_.Settle();
      std::printf(" %.0f", Milliseconds(Clock::now() - pressed).count());
    }
    CloseBoxes();
    if (app_.MenuEntry("mnuUndo").enabled) {
      std::printf(" (late)");
      app_.StartMenu("mnuUndo");
      app_.Settle();
    }
    if (app_.Text() != text) {
      throw DriverFailure("the document is not as it was");
    }
  }

  void Start(const Command& command) {
    if (command.presses.empty()) {
      app_.StartMenu(command.menu);
    } else {
      app_.Menu(command.menu);
    }
    for (const Press& press : command.presses) {
      const HWND window = WaitFor("a dialog with the button", [&] { return DialogWith(press.button); });
      DialogDriver dialog(window, [] {});
      for (const auto& [box, text] : press.texts) {
        dialog.Type(box, text);
      }
      const bool isModal = IsWindowEnabled(app_.MainWindow()) == FALSE;
      PostMessageW(dialog.Control(press.button), BM_CLICK, 0, 0);
      if (isModal) {
        dialog.WaitUntilGone();
      }
    }
  }

  // What the command has shown, and the windows it was given from.
  void CloseBoxes() {
    WaitUntil("the dialogs to close", [this] {
      app_.Settle();
      const std::vector<HWND> dialogs = TopWindows(GetCurrentProcessId(), kDialogClass);
      for (const HWND dialog : dialogs) {
        PostMessageW(dialog, WM_CLOSE, 0, 0);
      }
      return dialogs.empty();
    });
  }

  static HWND DialogWith(int controlId) {
    for (const HWND window : TopWindows(GetCurrentProcessId(), kDialogClass)) {
      if (IsWindowEnabled(window) != FALSE && GetDlgItem(window, controlId) != nullptr) {
        return window;
      }
    }
    return nullptr;
  }

  App& app_;
  std::filesystem::path document_;
};

}  // namespace
}  // namespace scrivanta

int wmain(int argc, wchar_t** argv) {
  if (argc != 2 && argc != 3) {
    std::fputs("usage: bench_stopping LINES [COMMAND]\n", stderr);
    return 2;
  }
  scrivanta::ForgetEarlierRuns();
  const scrivanta::TestFolder folder;
  // The program is left running and ends with the process: the control takes long to give up a large text.
  scrivanta::App app;
  int result = 0;
  try {
    const std::u16string text = scrivanta::MakeText(std::stoul(argv[1]));
    std::printf("%zu characters\n", text.size());
    scrivanta::Bench(app, folder.Write("document.txt", scrivanta::Gbk(text)))
        .Run(argc == 3 ? scrivanta::Utf8(scrivanta::FromWide(argv[2])) : std::string());
  } catch (const std::exception& error) {
    std::printf("%s\n", error.what());
    result = 1;
  }
  std::fflush(stdout);
  TerminateProcess(GetCurrentProcess(), static_cast<UINT>(result));
  return result;
}
