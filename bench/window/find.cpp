// Measures the search windows beside what they cannot do without: the control's own time for colouring as many places,
// and a search for the same text in memory. scripts/bench.sh find
#include <windows.h>

#include <richedit.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "note/FrmNoteControls.h"
#include "note/NoteSearch.h"
#include "search/FrmFindControls.h"
#include "text/LiteralFinder.h"
#include "text/win/WideText.h"
#include "win/RichEdit.h"
#include "window/driver/App.h"
#include "window/driver/FirstRun.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"

namespace scrivanta {
namespace {

using Seconds = std::chrono::duration<double>;
constexpr std::chrono::minutes kPatience{10};
constexpr int kWorkbenchPattern = 4201;
constexpr int kWorkbenchTest = 4202;

template <typename Work>
double Measure(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return Seconds(std::chrono::steady_clock::now() - start).count();
}

// So many lines, each with one place to find among Chinese.
std::u16string MakeText(std::size_t lines, std::size_t lineLength) {
  const std::u16string filler(lineLength, u'文');
  std::u16string text;
  for (std::size_t i = 0; i < lines; ++i) {
    text.append(filler).append(u"k7").append(u"\r\n");
  }
  return text;
}

void ShowText(const App& app, std::u16string_view text) {
  SetTextOf(app.Editor().window(), text);
  WaitUntil(
      "the text to be shown", [&] { return Send(app.Editor().window(), WM_GETTEXTLENGTH) > 0; }, kPatience);
}

// What the control takes for the same changes of format, alone in a window of the same size and font.
double ColourInBareControl(const App& app, std::u16string_view text, std::size_t places, std::size_t lineLength) {
  RECT size{};
  GetClientRect(app.Editor().window(), &size);
  const HWND window = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, size.right,
                                      size.bottom, nullptr, nullptr, nullptr, nullptr);
  RichEdit box;
  box.Create(window, 1, WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE | ES_AUTOHSCROLL | ES_AUTOVSCROLL);
  SetWindowPos(box.handle(), nullptr, 0, 0, size.right, size.bottom, SWP_NOZORDER);
  CHARFORMAT2W format = app.Editor().SelectionFormat();
  box.SetDefaultFormat(format);
  box.SetWordWrap(false);
  NoProgress progress;
  box.LoadText(text, progress);
  format.dwMask = CFM_COLOR | CFM_BACKCOLOR;
  format.dwEffects = 0;
  format.crTextColor = RGB(255, 0, 0);
  format.crBackColor = RGB(255, 255, 0);
  const double seconds = Measure([&] {
    const QuietRichEdit quiet(box);
    const auto step = static_cast<LONG>(lineLength) + 3;  // a line break counts one
    for (LONG place = 0; place < static_cast<LONG>(places); ++place) {
      const LONG start = place * step + static_cast<LONG>(lineLength);
      box.Select({start, start + 2});
      box.SetSelectionFormat(format);
    }
  });
  DestroyWindow(window);
  return seconds;
}

void CompareColouring(App& app) {
  constexpr std::size_t kPlaces = 10'000;
  constexpr std::size_t kLineLength = 48;  // 1 MB as GBK
  const std::u16string text = MakeText(kPlaces, kLineLength);
  const double before = ColourInBareControl(app, text, kPlaces, kLineLength);
  ShowText(app, text);
  app.Menu("mnuRegTest");
  DialogDriver workbench = app.ExpectDialog(u"RegularTest正则表达式测试");
  workbench.Type(kWorkbenchPattern, u"k\\d");
  const auto test = [&] {
    return Measure([&] {
      PostMessageW(workbench.Control(kWorkbenchTest), BM_CLICK, 0, 0);
      WaitUntil(
          "the matches to be counted",
          [] { return FindTopWindow(GetCurrentProcessId(), kDialogClass, u"Scrivanta") != nullptr; }, kPatience);
    });
  };
  const double ours = test();
  app.ExpectBox({.text = u"发现 10000 次。", .systemModal = true}).Answer(Answer::kOk);
  const double again = test();
  app.ExpectBox({.text = u"发现 10000 次。", .systemModal = true}).Answer(Answer::kOk);
  const double after = ColourInBareControl(app, text, kPlaces, kLineLength);
  const double bare = (before + after) / 2;
  std::printf("colour 10,000 matches: %.2f s, bare control %.2f and %.2f s: %.2f times\n", ours, before, after,
              ours / bare);
  std::printf("again, the old colours taken away first: %.2f s: %.2f times\n", again, again / bare);
}

void CompareFindNext(App& app) {
  constexpr std::size_t kLines = 100'000;
  constexpr std::size_t kLineLength = 49;  // 10 MB as GBK
  std::u16string text = MakeText(kLines, kLineLength);
  text += u"最后一处";
  ShowText(app, text);
  app.Menu("mnuFind");
  DialogDriver dialog = app.ExpectDialog(u"查找");
  dialog.Type(Combo1, u"最后一处");
  NoProgress progress;
  for (const bool matchCase : {false, true}) {
    if (matchCase) {
      dialog.Press(ChkCapitalCheck);
    }
    const double search = Measure([&] { LiteralFinder(u"最后一处", !matchCase).Find(text, 0, progress); });
    std::vector<double> times;
    for (int i = 0; i < 5; ++i) {
      app.Editor().Select({});
      app.Settle();
      times.push_back(Measure([&] {
        SendMessageW(dialog.window(), WM_COMMAND, MAKEWPARAM(CmdFindNext, BN_CLICKED),
                     reinterpret_cast<LPARAM>(dialog.Control(CmdFindNext)));
      }));
      CHARRANGE found{};
      Send(app.Editor().window(), EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&found));
      if (found.cpMax - found.cpMin != 4) {
        throw DriverFailure("the place was not found");
      }
    }
    std::ranges::sort(times);
    std::printf("find next over 10 MB, %s: %.0f ms (%.0f to %.0f), in memory %.0f ms\n",
                matchCase ? "matching case" : "any case", times[2] * 1000, times.front() * 1000, times.back() * 1000,
                search * 1000);
  }
}

// The whole of a search while it is typed: the text is asked of the control, searched, and the places that are seen are
// marked.
void CompareNote(App& app) {
  const std::u16string text = MakeText(2'000, 46);  // 100,000 characters with 2,000 places
  app.Menu("mnuNote");
  const DialogDriver note = app.ExpectDialog(u"便笺");
  SetTextOf(note.Control(RichNote), text);
  PostMessageW(note.window(), WM_COMMAND, mnuNoteFind, 0);
  app.Settle();
  for (const bool isPattern : {false, true}) {
    const std::u16string what = isPattern ? u"k\\d" : u"k7";
    if (isPattern) {
      DialogDriver(note).Press(ChkNotePattern);
    }
    NoteSearch search;
    const double inMemory = Measure([&] { search.Find(text, what, isPattern, BuiltInRegExpEngine()); });
    std::vector<double> times;
    for (int i = 0; i < 5; ++i) {
      SetTextOf(note.Control(TxtNoteFind), u"");
      times.push_back(Measure([&] { SetTextOf(note.Control(TxtNoteFind), what); }));
    }
    if (note.Text(LabNoteFound) != search.CountText({})) {
      throw DriverFailure("the note has found something else");
    }
    std::ranges::sort(times);
    std::printf("search in a note of 100,000 characters, %s: %.0f ms (%.0f to %.0f), in memory %.1f ms\n",
                isPattern ? "pattern" : "text", times[2] * 1000, times.front() * 1000, times.back() * 1000,
                inMemory * 1000);
  }
}

}  // namespace
}  // namespace scrivanta

int wmain(int argc, wchar_t** argv) {
  const std::wstring_view what = argc == 2 ? argv[1] : L"";
  if (what != L"find" && what != L"colour" && what != L"note") {
    std::fputs("usage: bench_find find|colour|note\n", stderr);
    return 2;
  }
  try {
    scrivanta::ForgetEarlierRuns();
    // The program is left running and ends with the process: the control takes long to give up a large text.
    auto app = std::make_unique<scrivanta::App>();
    app->Start();
    if (what == L"find") {
      scrivanta::CompareFindNext(*app);
    } else if (what == L"note") {
      scrivanta::CompareNote(*app);
    } else {
      scrivanta::CompareColouring(*app);
    }
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), 0);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}
