// Shows the program at work where nobody sees its window: opens a document, removes its empty lines through the menu,
// saves the result under another name, takes a picture, and says what has happened.
//
//   errand DOCUMENT RESULT PICTURE
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "window/driver/FirstRun.h"
#include "window/driver/ProgramProcess.h"
#include "window/driver/Screenshot.h"
#include "window/driver/TestFiles.h"
#include "window/driver/Wait.h"

namespace scrivanta {
namespace {

std::ptrdiff_t CountLines(std::u16string_view text) {
  const auto breaks = std::ranges::count(text, u'\n');
  return text.empty() || text.ends_with(u'\n') ? breaks : breaks + 1;
}

RECT BoundsOf(HWND window) {
  RECT bounds{};
  GetWindowRect(window, &bounds);
  return bounds;
}

// Whether something is to be seen there, and not the bare ground that comes first.
bool ShowsSomething(RECT part) {
  constexpr int kFrame = 8;  // pixels
  InflateRect(&part, -kFrame, -std::min<int>(kFrame, (part.bottom - part.top) / 4));
  const std::vector<std::uint32_t> pixels = ScreenPixels(part);
  return std::ranges::any_of(pixels, [&pixels](std::uint32_t pixel) { return pixel != pixels.front(); });
}

// Menu, text and status bar are there, and nothing is on its way any more.
void WaitUntilDrawn(HWND window) {
  const RECT bounds = BoundsOf(window);
  const RECT text = BoundsOf(FindWindowExW(window, nullptr, L"RICHEDIT50W", nullptr));
  const RECT status = BoundsOf(FindWindowExW(window, nullptr, STATUSCLASSNAMEW, nullptr));
  std::vector<std::uint32_t> last;
  WaitUntil("the window to be drawn", [&] {
    std::vector<std::uint32_t> now = ScreenPixels(bounds);
    const bool isStill = now == last;
    last = std::move(now);
    return isStill && ShowsSomething({bounds.left, bounds.top, bounds.right, text.top}) && ShowsSomething(text) &&
           ShowsSomething(status);
  });
}

void RunErrand(const std::filesystem::path& document, const std::filesystem::path& result,
               const std::filesystem::path& picture) {
  std::filesystem::remove(result);
  ProgramProcess program(u'"' + document.u16string() + u'"');
  WaitUntil("the document to open", [&] { return !program.Text().empty(); });
  const std::u16string before = program.Text();

  program.Menu("mnuDelEmptyLine");
  WaitUntil("the empty lines to go", [&] { return program.Text().find(u"\r\n\r\n") == std::u16string::npos; });
  const std::u16string after = program.Text();

  program.Menu("mnuSaveAs");
  program.ExpectFileDialog().Choose(result);
  WaitUntil("the result to be saved", [&] { return std::filesystem::exists(result); });
  program.ExpectCaption(u"Scrivanta " + result.u16string());
  WaitUntilDrawn(program.MainWindow());
  TakeScreenshot(BoundsOf(program.MainWindow()), picture);
  program.Close();
  program.WaitForEnd();

  std::printf("opened %s: %td lines\n", Utf8(document.filename().u16string()).c_str(), CountLines(before));
  std::printf("removed the empty lines: %td lines left\n", CountLines(after));
}

}  // namespace
}  // namespace scrivanta

int wmain(int argc, wchar_t** argv) {
  constexpr int kArguments = 4;
  if (argc != kArguments) {
    std::fputs("usage: errand DOCUMENT RESULT PICTURE\n", stderr);
    return 2;
  }
  try {
    scrivanta::ForgetEarlierRuns();
    scrivanta::RunErrand(argv[1], argv[2], argv[3]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}
