// Dark colours: what the screen shows, and that nothing of them gets into a document.
#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "shell/window/FrmOptionsControls.h"
#include "win/Clipboard.h"
#include "win/Colours.h"
#include "win/Handles.h"
#include "win/MessageLoop.h"
#include "win/RichEdit.h"
#include "win/Subclass.h"
#include "win/WindowHost.h"
#include "window/driver/Screenshot.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

constexpr wchar_t kTasteKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize";
constexpr wchar_t kTaste[] = L"AppsUseLightTheme";

// In a hundred of what a window shows, without its edges.
struct Shares {
  std::size_t dark = 0;
  std::size_t light = 0;
};

Shares SharesOf(HWND window) {
  constexpr int kEdge = 4;
  RECT inner{};
  GetClientRect(window, &inner);
  InflateRect(&inner, -kEdge, -kEdge);
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&inner), 2);
  // A thread that looks for messages first brings what it has drawn to the screen.
  MSG message{};
  PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
  const std::vector<std::uint32_t> pixels = ScreenPixels(inner);
  const auto green = [](std::uint32_t pixel) { return (pixel >> 8U) & 0xFFU; };
  const auto count = [&](auto isCounted) {
    return static_cast<std::size_t>(std::ranges::count_if(pixels, isCounted, green));
  };
  return {count([](std::uint32_t part) { return part < 64; }), count([](std::uint32_t part) { return part > 160; })};
}

void ExpectDark(HWND window) {
  WaitUntil("light text on dark ground", [&] {
    const Shares shares = SharesOf(window);
    return shares.dark > 9 * shares.light && shares.light > 0;
  });
}

void ExpectLight(HWND window) {
  WaitUntil("dark text on light ground", [&] {
    const Shares shares = SharesOf(window);
    return shares.light > 9 * shares.dark && shares.dark > 0;
  });
}

class ColoursTest : public WindowTest {
 protected:
  ~ColoursTest() override { RegDeleteKeyValueW(HKEY_CURRENT_USER, kTasteKey, kTaste); }

  void Choose(int option) {
    app.Menu("mnuOptions");
    DialogDriver dialog = app.ExpectDialog(u"选项");
    dialog.Press(option).Press(CmdOK);
    dialog.WaitUntilGone();
    app.Settle();
  }
  std::string CopiedRtf() {
    app.Menu("mnuSelectAll");
    app.Menu("mnuCopy");
    app.Editor().Select({{0}, 0});
    return RtfOnClipboard(nullptr);
  }
  // The user has chosen it for all programs.
  void TellTaste(DWORD isLight) {
    RegSetKeyValueW(HKEY_CURRENT_USER, kTasteKey, kTaste, REG_DWORD, &isLight, sizeof(isLight));
    SendMessageW(app.MainWindow(), WM_SETTINGCHANGE, 0, reinterpret_cast<LPARAM>(L"ImmersiveColorSet"));
    app.Settle();
  }
};

TEST_F(ColoursTest, AreOfTheScreenOnlyAndNotOfTheDocument) {
  const std::filesystem::path file = folder.Write(
      "a.rtf",
      R"({\rtf1\ansi{\colortbl;\red0\green0\blue255;\red255\green255\blue0;}plain {\b bold} {\cf1 blue} {\highlight2 marked} {\i end}})");
  app.Start();
  app.Open(file);
  const HWND box = app.Editor().window();
  app.Editor().Insert(u"more ");
  app.Menu("mnuSave");
  const std::string saved = ReadBytes(file);
  const std::string copied = CopiedRtf();
  const std::u16string text = app.Text();
  ExpectLight(box);

  Choose(OptColours2);
  ASSERT_EQ(app.Editor().window(), box);
  ExpectDark(box);
  ExpectDark(app.MainWindow());
  EXPECT_EQ(CopiedRtf(), copied);
  EXPECT_TRUE(app.MenuEntry("mnuUndo").enabled);
  EXPECT_FALSE(app.MenuEntry("mnuRedo").enabled);
  app.Menu("mnuUndo");
  app.ExpectText(text.substr(5));
  EXPECT_FALSE(app.MenuEntry("mnuUndo").enabled);
  app.Menu("mnuRedo");
  EXPECT_EQ(CopiedRtf(), copied);
  // What the box draws while it is typed into, and taken back.
  app.Type(u"typed");
  ExpectDark(box);
  app.Menu("mnuUndo");
  ExpectDark(box);
  app.Menu("mnuSave");
  EXPECT_EQ(ReadBytes(file), saved);

  Choose(OptColours1);
  ExpectLight(box);
  Choose(OptColours2);
  app.Open(file);
  ASSERT_NE(app.Editor().window(), box);
  ExpectDark(app.Editor().window());
  app.Close();  // it asks nothing
  EXPECT_EQ(app.WaitForEnd(), 0);
  EXPECT_EQ(ReadBytes(file), saved);
}

TEST_F(ColoursTest, FollowTheSystemUnlessTheyAreChosen) {
  app.Start();
  app.Editor().Insert(u"text");
  const HWND box = app.Editor().window();
  TellTaste(0);
  ExpectDark(box);
  // The line numbers still follow the box.
  app.Press("Ctrl+Shift+L");
  app.Settle();
  RECT before{};
  GetWindowRect(box, &before);
  std::u16string lines;
  for (int line = 0; line < 1000; ++line) {
    lines += u"\r\n";
  }
  app.Editor().Insert(lines);
  WaitUntil("room for another figure", [&] {
    RECT now{};
    GetWindowRect(box, &now);
    return now.left > before.left;
  });
  app.Menu("mnuUndo");
  app.ExpectText(u"text");
  // The menus are drawn by the program, and still know their access keys; one system asks for them, another does not.
  const HMENU bar = GetMenu(app.MainWindow());
  const auto answer = [&](wchar_t key, HMENU menu) {
    return Send(app.MainWindow(), WM_MENUCHAR, MAKEWPARAM(key, MF_POPUP), reinterpret_cast<LPARAM>(menu));
  };
  EXPECT_EQ(answer(L'l', bar), MAKELRESULT(4, MNC_EXECUTE));
  EXPECT_EQ(answer(L'r', GetSubMenu(bar, 1)), MAKELRESULT(1, MNC_SELECT)) << "the first of two";
  app.Press("Alt+L");
  app.ChooseInPopup(u'O');
  DialogDriver dialog = app.ExpectDialog(u"选项");
  ExpectDark(dialog.window());
  dialog.Close();
  app.Close();
  MessageBoxDriver question =
      app.ExpectBox({.text = u"是否存盘?", .buttons = Buttons::kYesNoCancel, .icon = Icon::kQuestion});
  ExpectDark(question.window());
  question.Answer(Answer::kCancel);
  TellTaste(1);
  ExpectLight(app.Editor().window());
  Choose(OptColours1);
  TellTaste(0);
  ExpectLight(app.Editor().window());
}

// A control that draws nowhere but on the screen.
TEST(Colours, AreThoseOfControlsThatCannotBeDrawnIntoAPicture) {
  MessageLoop loop;
  Colours colours;
  WindowHost host{GetModuleHandleW(nullptr), loop, colours, [](HWND, const std::exception_ptr&) {}};
  const OwnedLibrary library = LoadRichEditLibrary();
  const OwnedWindow parent(CreateWindowExW(WS_EX_TOPMOST, L"STATIC", L"", WS_POPUP | WS_CLIPCHILDREN, 0, 0, 300, 200,
                                           nullptr, nullptr, nullptr, nullptr));
  RichEdit box;
  box.Create(parent.get(), 1, WS_VISIBLE | ES_MULTILINE);
  MoveWindow(box.handle(), 0, 0, 300, 200, FALSE);
  const Subclass blind(host, box.handle(), [](UINT message, WPARAM, LPARAM) {
    return message == WM_PRINTCLIENT ? std::optional<LRESULT>(0) : std::nullopt;
  });
  colours.Dress(parent.get());
  box.ReplaceSelection(u"some text\r\nthat is seen");
  ShowWindow(parent.get(), SW_SHOWNOACTIVATE);
  const auto draw = [&] { RedrawWindow(parent.get(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN); };
  draw();
  ExpectLight(box.handle());
  colours.SetDark(true);
  draw();
  ExpectDark(box.handle());
  RECT part{0, 0, 40, 20};  // again, and only a part
  RedrawWindow(box.handle(), &part, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
  ExpectDark(box.handle());
}

}  // namespace
}  // namespace scrivanta
