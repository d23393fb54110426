// Makes the pictures of the documents from the program itself.
//
//   pictures SAMPLES IMAGES [dark]
//
// In dark colours it takes every window, for somebody to look at.
#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "search/FrmFindControls.h"
#include "shell/window/FrmOptionsControls.h"
#include "text/win/WideText.h"
#include "window/driver/FirstRun.h"
#include "window/driver/ProgramProcess.h"
#include "window/driver/Screenshot.h"
#include "window/driver/StoredSettings.h"
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

// Those whose looks are in no document.
constexpr std::array kFurtherDialogs = {
    DialogPicture{"mnuOptions", L"选项", L"options.png"},
    DialogPicture{"mnuChangeToSDFFile", L"转为SDF文件", L"sdf.png"},
    DialogPicture{"mnuFenLan", L"硬分栏", L"columns.png"},
    DialogPicture{"mnuCalendar", L"日历", L"calendar.png"},
    DialogPicture{"mnuDatabase", L"数据库交换", L"database.png"},
    DialogPicture{"mnuNote", L"便笺", L"note.png"},
    DialogPicture{"mnuChangeDiretryFileTime", L"批量改变文件日期", L"file-times.png"},
    DialogPicture{"mnuWindows", L"窗口与进程", L"windows.png"},
    DialogPicture{"mnuRegistry", L"注册表", L"registry.png"},
    DialogPicture{"mnuFolders", L"特殊文件夹与快捷方式", L"folders.png"},
    DialogPicture{"mnuZuoBiaoToXiangDuiZuoBiao", L"绝对坐标转为相对坐标", L"coordinates.png"},
    DialogPicture{"mnuSendInput", L"模拟键盘鼠标", L"send-input.png"}};

// With the access key of its entry in the bar.
void TakeMenuPicture(const ProgramProcess& program, char accessKey, const std::filesystem::path& file) {
  PostMessageW(program.MainWindow(), WM_SYSCOMMAND, SC_KEYMENU, accessKey);
  const HWND menu = WaitFor("the menu", [&] {
    const std::vector<HWND> menus = TopWindows(program.processId(), L"#32768");
    return menus.empty() ? nullptr : menus.front();
  });
  WaitUntil("the menu to be drawn", [menu] {
    constexpr std::uint32_t kLight = 0xB0B0B0;
    constexpr int kEdge = 4;
    RECT inner = BoundsOf(menu);
    InflateRect(&inner, -kEdge, -kEdge);
    return std::ranges::count_if(ScreenPixels(inner), [](std::uint32_t pixel) { return (pixel & 0xFFFFFF) > kLight; }) >
           1000;  // its texts
  });
  TakeScreenshot(BoundsOf(program.MainWindow()), file);
  PostMessageW(program.MainWindow(), WM_CANCELMODE, 0, 0);
  WaitUntil("the menu to go", [&] { return TopWindows(program.processId(), L"#32768").empty(); });
}

// Out of the find window: the samples as the files to replace in.
void TakePreviewPicture(const ProgramProcess& program, const std::filesystem::path& samples,
                        const std::filesystem::path& file) {
  program.Menu("mnuFind");
  const HWND find =
      WaitFor("the find window", [&] { return FindTopWindow(program.processId(), kDialogClass, u"查找"); });
  std::wstring files;
  for (const wchar_t* name : {L"notes.txt", L"table.txt"}) {
    files += std::filesystem::absolute(samples / name).native() + L"\r\n";
  }
  const auto type = [find](int control, const std::wstring& text) {
    SendDlgItemMessageW(find, control, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
  };
  type(Combo1, L"，|<制表符>");
  type(Combo2, L"、|：");
  type(RichTextBox1, files);
  PostMessageW(GetDlgItem(find, CmdReplaceInFile), BM_CLICK, 0, 0);
  const HWND preview =
      WaitFor("the preview", [&] { return FindTopWindow(program.processId(), kDialogClass, u"在文件中替换：预览"); });
  program.WaitUntilDrawn();
  WaitUntil("the preview to be drawn", [preview] { return IsDrawn(preview); });
  TakeScreenshot(BoundsOf(preview), file);
  for (const HWND dialog : {preview, find}) {
    PostMessageW(dialog, WM_CLOSE, 0, 0);
    WaitUntil("the dialog to go", [dialog] { return IsWindow(dialog) == FALSE; });
  }
}

void TakePictures(const std::filesystem::path& samples, const std::filesystem::path& images, bool dark) {
  const ProgramProcess program(u'"' + (samples / L"notes.txt").u16string() + u'"');
  WaitUntil("the document to open", [&] { return !program.Text().empty(); });
  SetWindowPos(program.MainWindow(), nullptr, 0, 0, 840, 600, SWP_NOZORDER);
  program.WaitUntilDrawn();
  TakeScreenshot(BoundsOf(program.MainWindow()), images / L"main-window.png");

  if (dark) {
    TakeMenuPicture(program, 'e', images / L"menu.png");
  }
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
  if (dark) {
    for (const DialogPicture& picture : kFurtherDialogs) {
      TakeDialogPicture(program, picture, images);
    }
    TakePreviewPicture(program, samples, images / L"replace-preview.png");
  }
  TakeKeysPicture(program, images / L"keys.png");
  program.Close();
  program.WaitForEnd();
}

}  // namespace
}  // namespace scrivanta

int wmain(int argc, wchar_t** argv) {
  constexpr int kArguments = 3;
  const bool dark = argc == kArguments + 1 && std::wstring_view(argv[kArguments]) == L"dark";
  if (argc != kArguments && !dark) {
    std::fputs("usage: pictures SAMPLES IMAGES [dark]\n", stderr);
    return 2;
  }
  SetProcessDPIAware();  // the pictures are cut out in the pixels of the screen
  try {
    scrivanta::ForgetEarlierRuns();
    if (dark) {
      scrivanta::StoreSetting(u"DarkColours", u"1");
    }
    scrivanta::TakePictures(argv[1], argv[2], dark);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}
