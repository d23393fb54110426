// Makes the pictures of the documents from the program itself.
//
//   pictures SAMPLES IMAGES
#include <windows.h>

#include <array>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>

#include "shell/window/FrmOptionsControls.h"
#include "text/win/WideText.h"
#include "window/driver/FirstRun.h"
#include "window/driver/ProgramProcess.h"
#include "window/driver/Screenshot.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"

namespace scrivanta {
namespace {

RECT BoundsOf(HWND window) {
  RECT bounds{};
  GetWindowRect(window, &bounds);
  return bounds;
}

// Of a window and all that is in it.
bool IsDrawn(HWND window) {
  bool isDrawn = GetUpdateRect(window, nullptr, FALSE) == FALSE;
  EnumChildWindows(
      window,
      [](HWND control, LPARAM parameter) -> BOOL {
        *reinterpret_cast<bool*>(parameter) &= GetUpdateRect(control, nullptr, FALSE) == FALSE;
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&isDrawn));
  return isDrawn;
}

struct DialogPicture {
  const char* command;
  const wchar_t* caption;
  const wchar_t* file;
};

// A dialog as it opens.
void TakeDialogPicture(const ProgramProcess& program, const DialogPicture& picture,
                       const std::filesystem::path& images) {
  program.Menu(picture.command);
  const HWND dialog = WaitFor("the dialog of " + std::string(picture.command), [&] {
    return FindTopWindow(program.processId(), kDialogClass, FromWide(picture.caption));
  });
  program.WaitUntilDrawn();
  WaitUntil("the dialog to be drawn", [dialog] { return IsDrawn(dialog); });
  TakeScreenshot(BoundsOf(dialog), images / picture.file);
  PostMessageW(dialog, WM_CLOSE, 0, 0);
  WaitUntil("the dialog to go", [dialog] { return IsWindow(dialog) == FALSE || IsWindowVisible(dialog) == FALSE; });
}

// Its button stands in the options, which show where the ini file is on this machine.
void TakeKeysPicture(const ProgramProcess& program, const std::filesystem::path& file) {
  program.Menu("mnuOptions");
  const HWND options =
      WaitFor("the options", [&] { return FindTopWindow(program.processId(), kDialogClass, u"选项"); });
  PostMessageW(GetDlgItem(options, CmdKeys), BM_CLICK, 0, 0);
  const HWND keys = WaitFor("the keys", [&] { return FindTopWindow(program.processId(), kDialogClass, u"快捷键"); });
  program.WaitUntilDrawn();
  WaitUntil("the dialog to be drawn", [keys] { return IsDrawn(keys); });
  TakeScreenshot(BoundsOf(keys), file);
  for (const HWND dialog : {keys, options}) {
    PostMessageW(dialog, WM_CLOSE, 0, 0);
    WaitUntil("the dialog to go", [dialog] { return IsWindow(dialog) == FALSE; });
  }
}

void TakePictures(const std::filesystem::path& samples, const std::filesystem::path& images) {
  const ProgramProcess program(u'"' + (samples / L"notes.txt").u16string() + u'"');
  WaitUntil("the document to open", [&] { return !program.Text().empty(); });
  SetWindowPos(program.MainWindow(), nullptr, 0, 0, 840, 600, SWP_NOZORDER);
  program.WaitUntilDrawn();
  TakeScreenshot(BoundsOf(program.MainWindow()), images / L"main-window.png");

  program.Menu("mnuSelectAll");
  // The options dialog is left out: it shows where the ini file is on this machine.
  constexpr std::array kDialogs = {DialogPicture{"mnuFind", L"查找", L"find.png"},
                                   DialogPicture{"mnuDelLineFromXtoY", L"删除开始行至结束行", L"delete-lines.png"},
                                   DialogPicture{"mnuSort", L"文件排序", L"sort.png"},
                                   DialogPicture{"mnuRegTest", L"RegularTest正则表达式测试", L"regexp-test.png"},
                                   DialogPicture{"mnuEncryptSelectedText", L"密钥", L"key.png"},
                                   DialogPicture{"mnuMergeFile", L"合并文件内容", L"merge.png"},
                                   DialogPicture{"mnuDataGuanLianHeBin", L"数据关联合并", L"join.png"},
                                   DialogPicture{"mnuJiaZiMu", L"加字母", L"initials.png"}};
  for (const DialogPicture& picture : kDialogs) {
    TakeDialogPicture(program, picture, images);
  }
  TakeKeysPicture(program, images / L"keys.png");
  program.Close();
  program.WaitForEnd();
}

}  // namespace
}  // namespace scrivanta

int wmain(int argc, wchar_t** argv) {
  constexpr int kArguments = 3;
  if (argc != kArguments) {
    std::fputs("usage: pictures SAMPLES IMAGES\n", stderr);
    return 2;
  }
  SetProcessDPIAware();  // the pictures are cut out in the pixels of the screen
  try {
    scrivanta::ForgetEarlierRuns();
    scrivanta::TakePictures(argv[1], argv[2]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}
