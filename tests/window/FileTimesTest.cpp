// The dates of files changed in the window, and taken back.
#include <windows.h>

#include <commctrl.h>

#include <array>
#include <vector>

#include "system/FrmFileTimesControls.h"
#include "system/MomentText.h"
#include "text/FileTimes.h"
#include "text/win/Handles.h"
#include "text/win/WideText.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

// A read-only file, deeper than a plain path may be; gone with its folders.
class DeepFile {
 public:
  DeepFile(const std::filesystem::path& folder, const std::wstring& name) {
    std::filesystem::path below = LR"(\\?\)" + folder.native();
    for (const std::wstring& part :
         {std::wstring(), std::wstring(90, L'深'), std::wstring(91, L'深'), std::wstring(92, L'深')}) {
      below = part.empty() ? below : below / part;
      folders_.push_back(below);
      CreateDirectoryW(below.c_str(), nullptr);
    }
    path_ = below / name;
    const OwnedFile file(
        CreateFileW(path_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_READONLY, nullptr));
    if (!file) {
      throw DriverFailure("the file in the deep folder could not be made");
    }
  }
  DeepFile(const DeepFile&) = delete;
  DeepFile& operator=(const DeepFile&) = delete;
  ~DeepFile() {
    SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_NORMAL);
    DeleteFileW(path_.c_str());
    for (auto below = folders_.rbegin(); below != folders_.rend(); ++below) {
      RemoveDirectoryW(below->c_str());
    }
  }

  const std::filesystem::path& path() const { return path_; }

 private:
  std::vector<std::filesystem::path> folders_;
  std::filesystem::path path_;
};

class FileTimesTest : public WindowTest {
 protected:
  static std::u16string Modified(const std::filesystem::path& file) {
    return MomentText(SystemTimeZone().ToLocal(*SystemFileTimes().Read(file)[FileTimeKind::kModified]));
  }

  // What a list shows in a column of its first row.
  static std::u16string Cell(const DialogDriver& dialog, int column) {
    std::array<wchar_t, 512> text{};
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    Send(dialog.Control(LstTimes), LVM_GETITEMTEXTW, 0, reinterpret_cast<LPARAM>(&item));
    return FromWide(text.data());
  }
  static LRESULT Rows(const DialogDriver& dialog) { return Send(dialog.Control(LstTimes), LVM_GETITEMCOUNT); }

  // Answers the question before the change with Yes; the file that it names takes the change back.
  std::filesystem::path Agree() {
    const HWND box = WaitFor("the question before the change",
                             [] { return FindTopWindow(GetCurrentProcessId(), kDialogClass, u"Scrivanta"); });
    constexpr int kTextControl = 0xFFFF;
    const std::u16string text = TextOf(GetDlgItem(box, kTextControl));
    const std::filesystem::path undo = text.substr(text.rfind(u'\n') + 1);
    EXPECT_TRUE(std::filesystem::exists(undo));
    app.ExpectBox({.text = u"改变表中1个文件的日期？\n要恢复原来的日期，用“撤消”读这个文件：\n" + undo.u16string(),
                   .buttons = Buttons::kYesNo,
                   .icon = Icon::kQuestion})
        .Answer(Answer::kYes);
    return undo;
  }
};

TEST_F(FileTimesTest, ChangesWhatItHasListedAndTakesItBack) {
  const DeepFile deep(folder / L"图片", L"IMG_20200102_030405.txt");
  const std::filesystem::path& file = deep.path();
  const std::u16string before = Modified(file);

  app.Start();
  app.Editor().Insert((folder / L"图片").u16string());
  app.Menu("mnuSelectAll");
  app.Menu("mnuChangeDiretryFileTime");
  DialogDriver dialog = app.ExpectDialog(u"批量改变文件日期");
  EXPECT_EQ(dialog.Text(TxtPlaces), (folder / L"图片").u16string());
  EXPECT_FALSE(dialog.IsEnabled(CmdChangeTimes));
  dialog.Press(OptName).Press(CmdListTimes);
  ASSERT_EQ(Rows(dialog), 1);
  EXPECT_EQ(Cell(dialog, 0), before);
  EXPECT_EQ(Cell(dialog, 1), u"2020-01-02 03:04:05");
  EXPECT_EQ(Modified(file), before);

  // What was listed is no longer what is asked for.
  dialog.Type(TxtShift, u"+1天");
  EXPECT_FALSE(dialog.IsEnabled(CmdChangeTimes));
  dialog.Press(CmdListTimes).Press(CmdChangeTimes);
  const std::filesystem::path undo = Agree();
  EXPECT_EQ(Modified(file), u"2020-01-03 03:04:05");
  EXPECT_EQ(dialog.Text(LblRemark), u"已改变1个文件");
  EXPECT_EQ(Cell(dialog, 3), u"已改");

  dialog.Press(CmdUndoTimes);
  app.ChooseFile(undo);
  EXPECT_EQ(Cell(dialog, 1), before);
  dialog.Press(CmdChangeTimes);
  const std::filesystem::path second = Agree();
  EXPECT_EQ(Modified(file), before);
  std::filesystem::remove(undo);
  std::filesystem::remove(second);
  dialog.Close();
  dialog.WaitUntilGone();
}

}  // namespace
}  // namespace scrivanta
