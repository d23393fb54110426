// Shows the program at work where nobody sees its window: opens a document, removes its empty lines through the menu,
// saves the result under another name, takes a picture, and says what has happened.
//
//   errand DOCUMENT RESULT PICTURE
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <string_view>

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
