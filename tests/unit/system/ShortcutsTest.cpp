// Shortcuts: what they say as text, those that are led right, and the way back.
#include <algorithm>
#include <map>

#include <gtest/gtest.h>

#include "support/ScriptedWorkbench.h"
#include "support/TemporaryFolder.h"
#include "system/UndoFiles.h"
#include "system/folders/FileCopies.h"
#include "system/folders/FoldersDialog.h"
#include "text/AtomicFile.h"
#include "text/Encoding.h"
#include "text/ExplainedError.h"
#include "text/PlatformFile.h"

namespace scrivanta::testing {
namespace {

// Shortcuts are files whose whole content is their target.
class TextShortcuts final : public ShortcutStore {
 public:
  Shortcut Read(const std::filesystem::path& file) const override {
    Shortcut shortcut = others.contains(file) ? others[file] : Shortcut();
    shortcut.target = Decode(Encoding::kUtf8, ReadWholeFile(file));
    if (shortcut.target == u"bad") {
      throw FileError(file, std::make_error_code(std::errc::invalid_argument));
    }
    return shortcut;
  }
  void Write(const std::filesystem::path& file, const Shortcut& shortcut) const override {
    if (file.filename() == "locked.lnk") {
      throw FileError(file, std::make_error_code(std::errc::permission_denied));
    }
    ReplaceFileContent(file, Encode(Encoding::kUtf8, shortcut.target));
    others[file] = shortcut;
  }

  mutable std::map<std::filesystem::path, Shortcut> others;
};

class TwoFolders final : public SpecialFolders {
 public:
  std::vector<SpecialFolder> List() const override { return {{u"桌面", path}, {u"没有的", {}}}; }

  std::filesystem::path path;
};

class Controls final : public FoldersView {
 public:
  void ShowFolders(const std::vector<SpecialFolder>& newFolders) override { folders = newFolders; }
  std::u16string Places() const override { return places; }
  void SetPlaces(const std::u16string& newPlaces) override { places = newPlaces; }
  void ShowShortcuts(const std::vector<ShortcutRow>& newRows) override { rows = newRows; }
  void ShowRemark(const std::u16string& text) override { remark = text; }
  void EnableChange(bool enable) override { canChange = enable; }
  std::optional<ShortcutForm> AskForShortcut(const ShortcutForm& form,
                                             const std::function<void(const ShortcutForm&)>& check) override {
    asked = form;
    if (answer) {
      check(*answer);
    }
    return answer;
  }

  std::vector<SpecialFolder> folders;
  std::u16string places;
  std::vector<ShortcutRow> rows;
  std::u16string remark;
  bool canChange = true;
  ShortcutForm asked;
  std::optional<ShortcutForm> answer;
};

TEST(ShortcutText, KeysAndIconsAreReadAsTheyAreShown) {
  for (const std::u16string_view text :
       {u"", u"Ctrl+Alt+K", u"Ctrl+Shift+F5", u"Ctrl+Shift+Alt+9", u"F24", u"Ctrl+Alt+PageDown", u"Ctrl+Alt+Insert"}) {
    const auto hotKey = ParseHotKey(text);
    ASSERT_TRUE(hotKey) << Encode(Encoding::kUtf8, text);
    EXPECT_EQ(HotKeyText(*hotKey), text);
  }
  EXPECT_EQ(ParseHotKey(u" alt + ctrl+k "), std::uint16_t{0x64B});
  for (const std::u16string_view text : {u"Ctrl+", u"Win+K", u"Ctrl+F25", u"Ctrl+Alt+KK", u"+"}) {
    EXPECT_FALSE(ParseHotKey(text)) << Encode(Encoding::kUtf8, text);
  }
  const std::tuple<std::u16string_view, std::u16string_view, int> icons[] = {{u"C:\\a.dll,3", u"C:\\a.dll", 3},
                                                                             {u"C:\\a.dll", u"C:\\a.dll", 0},
                                                                             {u"C:\\a,b.ico", u"C:\\a,b.ico", 0},
                                                                             {u"a.dll, -12", u"a.dll", -12},
                                                                             {u"", u"", 0}};
  for (const auto& [text, file, index] : icons) {
    Shortcut shortcut;
    SetIconText(shortcut, text);
    EXPECT_EQ(shortcut.iconFile, file);
    EXPECT_EQ(shortcut.iconIndex, index);
  }
}

class ShortcutsTest : public ::testing::Test {
 protected:
  ShortcutsTest() {
    workbench.SetRecoveryFolder(folder.path() / "Recovery");
    folders.path = folder.path() / "links";
    std::filesystem::create_directories(folders.path);
    std::filesystem::create_directories(folder.path() / "new" / "deep");
    dialog.Open(view);
  }
  std::filesystem::path Link(const std::string& name, const std::filesystem::path& target) {
    return folder.Put("links/" + name, Encode(Encoding::kUtf8, TextOfPath(target)));
  }
  std::u16string Here(const char* path) const { return TextOfPath(folder.path() / path); }
  std::string Target(const std::filesystem::path& link) const { return ReadWholeFile(link); }

  TemporaryFolder folder;
  ScriptedWorkbench workbench;
  TwoFolders folders;
  TextShortcuts store;
  Controls view;
  FoldersDialog dialog{workbench, folders, store};
};

TEST_F(ShortcutsTest, FoldersAreOpenedAndListed) {
  Link("a.lnk", folder.path());
  dialog.OpenFolder(0);
  dialog.OpenFolder(1);
  EXPECT_EQ(workbench.desktop().opened, (std::vector{folders.path}));
  dialog.PutFoldersIntoDocument(view);
  EXPECT_EQ(workbench.editor().Text(), u"名称\t文件夹\r\n桌面\t" + Here("links") + u"\r\n没有的\t\r\n");
  dialog.ListFolder(view, 0);
  EXPECT_EQ(view.rows.size(), 1U);
  EXPECT_EQ(view.places, Here("links"));
  dialog.OpenTarget(0);
  EXPECT_EQ(workbench.desktop().opened.back(), folder.path());
}

TEST_F(ShortcutsTest, MovedTargetsAreFoundByTheirNames) {
  const auto moved = Link("moved.lnk", folder.path() / "old" / "Tool.exe");
  Link("fine.lnk", folder.path() / "new");
  Link("twice.lnk", folder.path() / "old" / "x.txt");
  Link("gone.lnk", folder.path() / "old" / "gone.exe");
  Link("bad.lnk", "bad");
  Link("empty.lnk", "");
  folder.Put("links/no.txt", "");
  store.others[moved].folder = Here("old");
  store.others[moved].iconFile = Here("old/icons/a.ico");
  folder.Put("new/deep/TOOL.EXE", "");
  folder.Put("new/x.txt", "");
  folder.Put("new/deep/x.txt", "");
  view.places = Here("links");
  dialog.List(view);
  EXPECT_EQ(view.remark, u"5个快捷方式，3个的目标不在，1个读不了，见表的末尾");
  EXPECT_FALSE(view.canChange);
  EXPECT_EQ(view.rows.back().file, Here("links/bad.lnk"));

  workbench.prompts().Will(folder.path() / "new");
  dialog.FindTargets(view);
  const auto row = [this](const char* name) { return *std::ranges::find(view.rows, Here(name), &ShortcutRow::file); };
  EXPECT_EQ(row("links/moved.lnk").corrected, Here("new/deep/TOOL.EXE"));
  EXPECT_EQ(row("links/twice.lnk").remark, u"目标不在，同名的有2个");
  EXPECT_EQ(row("links/gone.lnk").remark, u"目标不在，没有找到");
  EXPECT_EQ(row("links/empty.lnk").remark, u"目标不是文件");
  EXPECT_EQ(Target(moved), Encode(Encoding::kUtf8, Here("old/Tool.exe"))) << "nothing is changed yet";
  workbench.prompts().Will(Answer::kNo);
  dialog.Change(view);
  EXPECT_FALSE(std::filesystem::exists(UndoFolder(workbench.folders())));
  workbench.prompts().Will(Answer::kYes);
  dialog.Change(view);
  EXPECT_EQ(Target(moved), Encode(Encoding::kUtf8, Here("new/deep/TOOL.EXE")));
  EXPECT_EQ(store.others[moved].folder, Here("new/deep"));
  EXPECT_EQ(store.others[moved].iconFile, Here("new/deep/icons/a.ico"));

  workbench.prompts().Will(*std::filesystem::directory_iterator(UndoFolder(workbench.folders())));
  workbench.prompts().Will(Answer::kYes);
  dialog.TakeBack(view);
  EXPECT_EQ(Target(moved), Encode(Encoding::kUtf8, Here("old/Tool.exe")));
}

TEST_F(ShortcutsTest, BeginningsOfPathsAreReplacedAndFailuresNamed) {
  const auto link = Link("a.lnk", "D:\\Soft\\a.exe");
  Link("b.lnk", "D:\\Software\\a.exe");
  const auto locked = Link("locked.lnk", "d:\\soft");
  view.places = Here("links");
  dialog.List(view);
  EXPECT_THROW(dialog.ReplaceBeginning(view, u"", u"E:"), ExplainedError);
  dialog.ReplaceBeginning(view, u"d:\\soft", u"E:\\软件");
  EXPECT_EQ(view.rows[0].corrected, u"E:\\软件\\a.exe");
  EXPECT_EQ(view.rows[1].corrected, u"") << "another folder that begins alike";
  EXPECT_EQ(view.rows[2].corrected, u"E:\\软件");
  workbench.prompts().Will(Answer::kYes);
  dialog.Change(view);
  EXPECT_EQ(Target(link), Encode(Encoding::kUtf8, u"E:\\软件\\a.exe"));
  EXPECT_EQ(Target(locked), "d:\\soft");
  EXPECT_TRUE(view.remark.starts_with(u"已改变1个"));
  EXPECT_NE(workbench.prompts().messages.back().text.find(u"locked.lnk：没有权限"), std::u16string::npos);
}

TEST_F(ShortcutsTest, IsMadeAndTakenBack) {
  view.answer = ShortcutForm{.file = Here("links/新"),
                             .shortcut = {.target = u"C:\\a.exe"},
                             .icon = u"b.dll,2",
                             .hotKey = u"Ctrl+Alt+B",
                             .isNew = true};
  dialog.NewShortcut(view);
  const std::filesystem::path made = folder.path() / "links" / u"新.lnk";
  EXPECT_EQ(Target(made), "C:\\a.exe");
  EXPECT_EQ(store.others[made].hotKey, 0x642);
  EXPECT_EQ(store.others[made].iconIndex, 2);
  EXPECT_THROW(dialog.NewShortcut(view), ExplainedError) << "it is there";
  view.answer->file = Here("links/other");
  view.answer->hotKey = u"Win+B";
  EXPECT_THROW(dialog.NewShortcut(view), ExplainedError);
  view.answer->hotKey = u"";
  view.answer->shortcut.target.clear();
  EXPECT_THROW(dialog.NewShortcut(view), ExplainedError);
  workbench.prompts().Will(*std::filesystem::directory_iterator(UndoFolder(workbench.folders())));
  workbench.prompts().Will(Answer::kYes);
  dialog.TakeBack(view);
  EXPECT_FALSE(std::filesystem::exists(made));
}

TEST(FileCopies, TextHoldsBytesAndNames) {
  const std::vector<FileCopy> copies = {
      {"/a 甲\t.lnk", std::string("\0\xff\r\n", 4)}, {"/none", std::nullopt}, {"/e", ""}};
  const std::vector<FileCopy> read = ReadCopies(TextOfCopies(copies));
  ASSERT_EQ(read.size(), 3U);
  for (std::size_t i = 0; i < read.size(); ++i) {
    EXPECT_EQ(read[i].path, copies[i].path);
    EXPECT_EQ(read[i].bytes, copies[i].bytes);
  }
  const std::string good = TextOfCopies({});
  for (const std::string& bad : {std::string("x"), good + "0\t/a\r\n", good + "zz\t/a\r\n", good + "00\r\n"}) {
    EXPECT_THROW(ReadCopies(bad), ExplainedError) << bad;
  }
}

}  // namespace
}  // namespace scrivanta::testing
