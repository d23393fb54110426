// Makes the pictures of the documents from the program itself.
//
//   screenshots SAMPLES IMAGES
#include <windows.h>

#include <cstdio>
#include <exception>
#include <filesystem>

#include "window/driver/ProgramProcess.h"
#include "window/driver/Screenshot.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"

namespace scrivanta {
namespace {

constexpr wchar_t kMenuClass[] = L"#32768";

RECT BoundsOf(HWND window) {
  RECT bounds{};
  GetWindowRect(window, &bounds);
  return bounds;
}

// As Alt and the access key do.
HWND OpenMenu(const ProgramProcess& program, wchar_t accessKey) {
  PostMessageW(program.MainWindow(), WM_SYSCOMMAND, SC_KEYMENU, accessKey);
  return WaitFor("the menu", [&] {
    const auto menus = TopWindows(program.processId(), kMenuClass);
    return menus.empty() ? nullptr : menus.front();
  });
}

void TakePictures(const std::filesystem::path& samples, const std::filesystem::path& images) {
  const ProgramProcess program(u'"' + (samples / L"notes.txt").u16string() + u'"');
  WaitUntil("the document to open", [&] { return !program.Text().empty(); });
  SetWindowPos(program.MainWindow(), nullptr, 0, 0, 840, 600, SWP_NOZORDER);
  program.WaitUntilDrawn();
  TakeScreenshot(BoundsOf(program.MainWindow()), images / L"main-window.png");

  RECT both{};
  const RECT menu = BoundsOf(OpenMenu(program, L't'));
  const RECT window = BoundsOf(program.MainWindow());
  UnionRect(&both, &menu, &window);
  program.WaitUntilDrawn();
  TakeScreenshot(both, images / L"menu.png");
  PostMessageW(program.MainWindow(), WM_CANCELMODE, 0, 0);
  program.Close();
  program.WaitForEnd();
}

}  // namespace
}  // namespace scrivanta

int wmain(int argc, wchar_t** argv) {
  constexpr int kArguments = 3;
  if (argc != kArguments) {
    std::fputs("usage: screenshots SAMPLES IMAGES\n", stderr);
    return 2;
  }
  try {
    scrivanta::TakePictures(argv[1], argv[2]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}
