// Files that cannot be opened or written: a clear message, and document and file as they were.
#include <windows.h>

#include <string>

#include "win/Handles.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class FileFailureTest : public WindowTest {
 protected:
  // Checks the message that names the file and the reason.
  void ExpectFailure(const std::filesystem::path& file, const std::u16string& reason) {
    app.ExpectBox({.text = u"文件读写失败：\n" + file.u16string() + u"\n" + reason,
                   .icon = Icon::kCritical,
                   .systemModal = true})
        .Answer(Answer::kOk);
  }
};

// Held open by another program that shares it with nobody.
OwnedFile HoldOpen(const std::filesystem::path& file) {
  return OwnedFile(CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
}

TEST_F(FileFailureTest, FileOfTheCommandLineIsMissing) {
  const auto missing = folder / u"没有.txt";
  app.Start(u'"' + missing.u16string() + u'"');
  ExpectFailure(missing, u"文件不存在");
  app.ExpectText(u"");
  app.ExpectStatus(u"状态");
}

TEST_F(FileFailureTest, WhatCannotBeOpenedLeavesTheDocumentAsItWas) {
  const auto document = folder.Write(u"原稿.txt", Gbk(u"原稿"));
  const auto locked = folder.Write(u"占用.txt", Gbk(u"占用"));
  const OwnedFile holder = HoldOpen(locked);
  const auto directory = folder / u"文件夹.txt";
  std::filesystem::create_directory(directory);

  app.Start(u'"' + document.u16string() + u'"');
  app.Drop({locked});
  ExpectFailure(locked, u"文件正被其他程序使用");
  app.Drop({directory});
  ExpectFailure(directory, u"这是一个文件夹，不是文件");
  app.ExpectText(u"原稿");
  app.ExpectCaption(u"Scrivanta " + document.u16string());
}

TEST_F(FileFailureTest, WhatCannotBeSavedLeavesTheFileAsItWasAndTheDocumentChanged) {
  const auto readOnly = folder.Write(u"只读.txt", Gbk(u"旧"));
  SetFileAttributesW(readOnly.c_str(), FILE_ATTRIBUTE_READONLY);
  const auto locked = folder.Write(u"占用.txt", Gbk(u"旧"));
  const OwnedFile holder = HoldOpen(locked);

  app.Start();
  app.Type(u"新");
  for (const auto& target : {readOnly, locked}) {
    app.Menu("mnuSaveAs");
    app.ChooseFile(target);
    if (target == locked) {
      app.ExpectBox({.text = u"文件已存在：\n" + target.u16string() + u"\n是否替换？",
                     .buttons = Buttons::kYesNo,
                     .icon = Icon::kWarning,
                     .defaultAnswer = Answer::kNo})
          .Answer(Answer::kYes);
    }
    ExpectFailure(target, u"没有权限，或文件正被其他程序使用");
    app.ExpectText(u"新");
  }
  app.Close();
  app.ExpectBox({.text = u"是否存盘?", .buttons = Buttons::kYesNoCancel, .icon = Icon::kQuestion}).Answer(Answer::kNo);
  EXPECT_EQ(app.WaitForEnd(), 0);

  EXPECT_EQ(ReadBytes(readOnly), Gbk(u"旧"));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 2);  // nothing half written
  SetFileAttributesW(readOnly.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(FileFailureTest, LongPathsAndNamesOutsideTheCodePageWork) {
  std::filesystem::path deep = folder.path();
  while (deep.native().size() < 300) {
    deep /= u"一个很长的文件夹名称";
  }
  std::filesystem::create_directories(deep);
  const auto document = deep / u"한국어 😊.txt";
  WriteBytes(document, Gbk(u"内容"));

  app.Start(u'"' + document.u16string() + u'"');
  app.ExpectText(u"内容");
  app.ExpectCaption(u"Scrivanta " + document.u16string());
  app.Type(u"新");
  app.Menu("mnuSave");
  EXPECT_EQ(ReadBytes(document), Gbk(u"新内容"));
}

}  // namespace
}  // namespace scrivanta
