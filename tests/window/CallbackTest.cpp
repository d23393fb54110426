// What the system calls back may fail: the failure comes out where the system was called, and is never taken for
// success.
#include <windows.h>

#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "text/SameFile.h"
#include "win/Colours.h"
#include "win/Dialog.h"
#include "win/InputBoxControls.h"
#include "win/RichEdit.h"
#include "win/SystemFolders.h"
#include "window/driver/TestFiles.h"

namespace scrivanta {
namespace {

class CallbackTest : public ::testing::Test {
 protected:
  CallbackTest() {
    parent_.Reset(CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 300, 200, nullptr, nullptr, nullptr, nullptr));
    box.Create(parent_.get(), 1, ES_MULTILINE);
  }

  std::vector<std::string> told;  // of exceptions that reached a window's procedure
  MessageLoop loop;
  Colours colours;
  WindowHost host{GetModuleHandleW(nullptr), loop, colours, [this](HWND, const std::exception_ptr& failure) {
                    try {
                      std::rethrow_exception(failure);
                    } catch (const std::exception& error) {
                      told.emplace_back(error.what());
                    }
                  }};
  OwnedLibrary library = LoadRichEditLibrary();
  RichEdit box;
  NoProgress progress;

 private:
  OwnedWindow parent_;
};

class FailingDialog final : public Dialog {
 public:
  explicit FailingDialog(WindowHost& host) : Dialog(host, IDD_INPUT_BOX) {}
  bool isFailing = true;

 private:
  void OnInit() override {
    if (isFailing) {
      throw std::runtime_error("cannot open");
    }
  }
  bool OnCommand(int, int) override { throw std::runtime_error("cannot do"); }
};

TEST_F(CallbackTest, ADialogThatCannotOpenIsNotOpen) {
  FailingDialog dialog(host);
  EXPECT_THROW(dialog.ShowModal(nullptr), std::runtime_error);
  EXPECT_THROW(dialog.ShowModeless(nullptr), std::runtime_error);
  EXPECT_FALSE(dialog.IsOpen());
  EXPECT_TRUE(loop.dialogs().empty());
  EXPECT_TRUE(told.empty()) << "whoever shows it tells";

  dialog.isFailing = false;
  dialog.ShowModeless(nullptr);
  SendMessageW(dialog.handle(), WM_COMMAND, IDOK, 0);
  EXPECT_EQ(told, (std::vector<std::string>{"cannot do"}));
  EXPECT_TRUE(dialog.IsOpen());
}

class Stopping final : public Progress {
 public:
  void Report(std::uint64_t, std::uint64_t) override { throw Interrupted(); }
};

TEST_F(CallbackTest, ARichTextThatBreaksOffIsNone) {
  EXPECT_TRUE(box.LoadRtf("{\\rtf1 whole}", progress));
  EXPECT_FALSE(box.LoadRtf("{\\rtf1 {\\b broken", progress));
  box.Select({0, 0});
  EXPECT_TRUE(box.ReplaceSelectionByRtf("{\\rtf1 whole}"));
  EXPECT_FALSE(box.ReplaceSelectionByRtf("{\\rtf1 {\\b broken"));
  EXPECT_THROW(box.LoadRtfByLines({.header = "{\\rtf1 {", .lines = "broken\\par\r\n"}, progress), std::system_error);
  Stopping stopping;
  EXPECT_THROW(box.LoadRtf("{\\rtf1 whole}", stopping), Interrupted);
}

TEST(SystemFolders, NameTheSystemsOwnPrograms) {
  for (const char16_t* name : {u"notepad.exe", u"REGEDIT.EXE", u"regsvr32.exe"}) {
    const std::filesystem::path program = SystemProgram(name);
    EXPECT_TRUE(program.is_absolute()) << program;
    EXPECT_TRUE(std::filesystem::exists(program)) << program;
  }
}

TEST(SameFile, DoesNotGoByCapitals) {
  const TestFolder folder;
  const auto file = folder.Write(u"清单 A.txt", "");
  EXPECT_TRUE(IsSameFile(file, folder.path() / u"清单 a.TXT"));
  EXPECT_TRUE(IsSameFile(folder.path() / u"没有 A.txt", folder.path() / u"没有 a.TXT"));
  EXPECT_FALSE(IsSameFile(file, folder.path() / u"清单 B.txt"));
}

}  // namespace
}  // namespace scrivanta
