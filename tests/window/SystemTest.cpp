// The program as a part of the system: its list of documents, other screens, input methods.
#include <windows.h>

#include <shlobj.h>

#include <array>
#include <cstdlib>
#include <string>

#include "shell/window/FrmMainControls.h"
#include "win/Handles.h"
#include "window/driver/WindowProbe.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class SystemTest : public WindowTest {
 protected:
  LONG StatusFontHeight() const {
    const auto font = reinterpret_cast<HFONT>(Send(GetDlgItem(app.MainWindow(), StatusBar1), WM_GETFONT));
    LOGFONTW description{};
    GetObjectW(font, sizeof(description), &description);
    return std::abs(description.lfHeight);
  }
  LONG IconWidth(WPARAM kind) const {
    ICONINFO icon{};
    GetIconInfo(reinterpret_cast<HICON>(Send(app.MainWindow(), WM_GETICON, kind)), &icon);
    const OwnedFont colours(icon.hbmColor);  // both are objects to be deleted, as fonts are
    const OwnedFont mask(icon.hbmMask);
    BITMAP bitmap{};
    GetObjectW(icon.hbmMask, sizeof(bitmap), &bitmap);
    return bitmap.bmWidth;
  }
};

// The entry of the list that stands for the document.
std::filesystem::path EntryOf(const std::filesystem::path& document) {
  std::array<wchar_t, MAX_PATH> folder{};
  SHGetFolderPathW(nullptr, CSIDL_RECENT, nullptr, SHGFP_TYPE_CURRENT, folder.data());
  return std::filesystem::path(folder.data()) / (document.filename().wstring() + L".lnk");
}

TEST_F(SystemTest, DocumentsStandInTheListOfThoseUsedLately) {
  const auto opened = folder.Write(u"刚打开的.txt", Gbk(u"一"));
  const auto saved = folder / u"刚存下的.txt";
  // A run before this may have left them.
  std::filesystem::remove(EntryOf(opened));
  std::filesystem::remove(EntryOf(saved));
  app.Start(opened.u16string());
  EXPECT_TRUE(std::filesystem::exists(EntryOf(opened)));
  app.Menu("mnuSaveAs");
  app.ChooseFile(saved);
  app.ExpectCaption(u"Scrivanta " + saved.u16string());
  EXPECT_TRUE(std::filesystem::exists(EntryOf(saved)));
}

TEST_F(SystemTest, AnotherScreenChangesSizeFontAndIcons) {
  app.Start();
  const LONG fontBefore = StatusFontHeight();
  const RECT wanted{10, 20, 1000, 800};
  constexpr UINT kDotsPerInch = 144;
  Send(app.MainWindow(), WM_DPICHANGED, MAKEWPARAM(kDotsPerInch, kDotsPerInch), reinterpret_cast<LPARAM>(&wanted));
  RECT bounds{};
  GetWindowRect(app.MainWindow(), &bounds);
  EXPECT_NE(EqualRect(&bounds, &wanted), FALSE);
  EXPECT_EQ(StatusFontHeight(), MulDiv(fontBefore, kDotsPerInch, USER_DEFAULT_SCREEN_DPI));
  EXPECT_EQ(IconWidth(ICON_BIG), GetSystemMetricsForDpi(SM_CXICON, kDotsPerInch));
  EXPECT_EQ(IconWidth(ICON_SMALL), GetSystemMetricsForDpi(SM_CXSMICON, kDotsPerInch));
}

TEST_F(SystemTest, NoShortcutWorksWhileAnInputMethodComposes) {
  app.Start();
  app.Type(u"正文");
  const HWND box = app.Editor().window();
  Send(box, WM_IME_STARTCOMPOSITION);
  app.Press("Ctrl+Z");
  app.ExpectText(u"正文");
  Send(box, WM_IME_ENDCOMPOSITION);
  app.Press("Ctrl+Z");
  app.ExpectText(u"");
}

// A shortcut of the edit control's own would change what the document looks like.
TEST_F(SystemTest, KeysOfTheEditControlForFormatsAreOff) {
  app.Start();
  app.Type(u"abc");
  app.Editor().Select({{0}, 3});
  const auto paragraph = [&] {
    PARAFORMAT2 format{};
    format.cbSize = sizeof(format);
    Send(app.Editor().window(), EM_GETPARAFORMAT, 0, reinterpret_cast<LPARAM>(&format));
    return format;
  };
  const PARAFORMAT2 before = paragraph();
  const CHARFORMAT2W charactersBefore = app.Editor().SelectionFormat();
  for (const char* keys :
       {"Ctrl+E", "Ctrl+R", "Ctrl+J", "Ctrl+L", "Ctrl+1", "Ctrl+2", "Ctrl+5", "Ctrl+Shift+L", "Ctrl+Shift+A"}) {
    SCOPED_TRACE(keys);
    app.Press(keys);
    const PARAFORMAT2 after = paragraph();
    const CHARFORMAT2W charactersAfter = app.Editor().SelectionFormat();
    EXPECT_EQ(after.wAlignment, before.wAlignment);
    EXPECT_EQ(after.wNumbering, before.wNumbering);
    EXPECT_EQ(after.dyLineSpacing, before.dyLineSpacing);
    EXPECT_EQ(charactersAfter.yHeight, charactersBefore.yHeight);
    EXPECT_EQ(charactersAfter.dwEffects, charactersBefore.dwEffects);
    app.ExpectText(u"abc");
  }
}

}  // namespace
}  // namespace scrivanta
