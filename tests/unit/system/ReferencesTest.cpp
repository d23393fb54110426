// The references of projects, and what the registry knows of them.
#include <gtest/gtest.h>

#include "support/MemoryRegistry.h"
#include "support/ScriptedWorkbench.h"
#include "support/TemporaryFolder.h"
#include "system/projects/ProjectReferences.h"
#include "system/projects/ReferenceHandlers.h"
#include "system/projects/TypeLibraries.h"
#include "system/registry/RegistryData.h"
#include "text/Encoding.h"
#include "text/PlatformFile.h"

namespace scrivanta::testing {
namespace {

constexpr std::u16string_view kGuid = u"{00020430-0000-0000-C000-000000000046}";

TEST(ProjectReferences, AreReadInAllTheirForms) {
  const ProjectReferences read = ReadProject(
      u"Type=Exe\r\n"
      u"Reference=*\\G{00020430-0000-0000-c000-000000000046}#2.a#0#..\\sys\\STDOLE2.TLB#OLE #1 Automation\r\n"
      u"Reference=*\\G{00020430-0000-0000-C000-000000000046}#2.0#409#C:\\x y.tlb\r\n"
      u"object={00020430-0000-0000-C000-000000000046}#1.2#0; COMDLG32.OCX\r\n"
      u"Object=\"*\\ACtl.vbp\"\nReference=*\\A..\\Lib.vbp\n"
      u"Module=Reference; a.bas\r\n"
      u"Reference=*\\G{0002043}#2.0#0#a#b\r\nReference=*\\G{00020430-0000-0000-C000-000000000046}#2#0#a\r\n"
      u"[MS Transaction Server]\r\nReference=*\\Aother.vbp\r\n");
  ASSERT_EQ(read.references.size(), 5U);
  const auto& first = read.references[0];
  EXPECT_EQ(first.id, (TypeLibraryId{.guid = std::u16string(kGuid), .major = 2, .minor = 10, .language = 0}));
  EXPECT_EQ(first.name, u"OLE #1 Automation");
  EXPECT_EQ(first.file, u"..\\sys\\STDOLE2.TLB");
  EXPECT_EQ(first.line, 2U);
  EXPECT_EQ(VersionText(*first.id), u"2.10");
  EXPECT_TRUE(read.references[1].id->language == 0x409 && read.references[1].name.empty());
  EXPECT_EQ(read.references[1].file, u"C:\\x y.tlb");
  EXPECT_TRUE(read.references[2].kind == ReferenceKind::kControl && read.references[2].file == u"COMDLG32.OCX");
  EXPECT_TRUE(read.references[3].kind == ReferenceKind::kProject && read.references[3].file == u"Ctl.vbp");
  EXPECT_EQ(read.references[4].file, u"..\\Lib.vbp");
  ASSERT_EQ(read.unread.size(), 2U);
  EXPECT_EQ(read.unread[0].line, 8U);
  EXPECT_EQ(ReadProjectGroup(u"VBGROUP 5.0\r\nStartupProject=a.vbp\r\nProject=..\\b\\b.vbp\r\n"),
            (std::vector<std::u16string>{u"a.vbp", u"..\\b\\b.vbp"}));
}

class ReferencesTest : public ::testing::Test {
 protected:
  // Version 2.0 of the library, and the file that it is registered with.
  void Register(std::u16string_view file, std::u16string_view platform = u"win64",
                std::u16string_view version = u"2.0") {
    const std::u16string key =
        u"HKEY_CLASSES_ROOT\\TypeLib\\" + std::u16string(kGuid) + u"\\" + std::u16string(version);
    registry.Create(key + u"\\0\\" + std::u16string(platform));
    registry.Create(key + u"\\FLAGS");
    registry.SetValue(key, TextValue(u"", u"OLE Automation"));
    registry.SetValue(key + u"\\0\\" + std::u16string(platform), TextValue(u"", file));
  }
  std::filesystem::path Write(const std::filesystem::path& name, std::u16string_view text) {
    return folder.Put(name, Encode(Encoding::kGbk, text));
  }
  // The fields of a line of the document, from 0.
  std::vector<std::u16string> Row(std::size_t line) {
    std::u16string text = workbench.editor().Text();
    for (; line > 0; --line) {
      text.erase(0, text.find(u'\n') + 1);
    }
    text.erase(text.find(u'\r'));
    std::vector<std::u16string> fields(1);
    for (const char16_t c : text) {
      if (c == u'\t') {
        fields.emplace_back();
      } else {
        fields.back() += c;
      }
    }
    return fields;
  }

  MemoryRegistry registry;
  TemporaryFolder folder;
  ScriptedWorkbench workbench;
};

TEST_F(ReferencesTest, OfAGroupStandInOneTable) {
  const std::u16string here = TextOfPath(folder.path());
  std::filesystem::create_directory(folder.path() / "sub");
  const auto library = Write("ole.tlb", u"");
  Write("sub/甲.vbp", u"Reference=*\\G" + std::u16string(kGuid) + u"#2.0#0#..\\ole.tlb#OLE\r\n" + u"Reference=*\\G" +
                          std::u16string(kGuid) + u"#1.0#0#gone.tlb#Old\r\n" + u"Object=" + std::u16string(kGuid) +
                          u"#2.0#0; ole.ocx\r\nReference=*\\A没有.vbp\r\nReference=?\r\n");
  const auto group = Write("all.vbg", u"VBGROUP 5.0\r\nProject=sub\\甲.vbp\r\nProject=\"none.vbp\"\r\nProject=\r\n");
  Register(TextOfPath(library));
  workbench.prompts().Will(std::vector{group, folder.path() / "sub" / "甲.vbp"});
  mnuVBreferences(workbench, registry);

  const std::u16string project = here + u"/sub/甲.vbp";
  const std::u16string file = TextOfPath(library);
  const std::u16string guid(kGuid);
  EXPECT_EQ(Row(1),
            (std::vector<std::u16string>{u"引用", u"OLE", u"2.0", file, u"在", u"已登记", file, guid, project}));
  EXPECT_EQ(Row(2), (std::vector<std::u16string>{u"引用", u"Old", u"1.0", here + u"/sub/gone.tlb", u"不在",
                                                 u"登记的是2.0版", u"", guid, project}));
  EXPECT_EQ(Row(3), (std::vector<std::u16string>{u"部件", u"OLE Automation", u"2.0", file, u"在", u"已登记", file, guid,
                                                 project}));
  EXPECT_EQ(Row(4),
            (std::vector<std::u16string>{u"工程", u"", u"", here + u"/sub/没有.vbp", u"不在", u"", u"", u"", project}));
  EXPECT_EQ(Row(5)[0], u"看不懂");
  EXPECT_EQ(Row(5)[8], project + u"，第5行");
  EXPECT_EQ(workbench.status, u"引用4个，文件不在2个，未登记1个");
  ASSERT_EQ(workbench.prompts().messages.size(), 1U);
  EXPECT_NE(workbench.prompts().messages[0].text.find(u"none.vbp：文件不存在"), std::u16string::npos);
}

TEST_F(ReferencesTest, LibraryRegisteredElsewhereIsToldSo) {
  const auto used = Write("used.tlb", u"");
  const auto other = Write("other.tlb", u"");
  const auto project = Write("a.vbp", u"Reference=*\\G" + std::u16string(kGuid) + u"#2.0#0#used.tlb#OLE\r\n");
  Register(TextOfPath(other));
  Register(TextOfPath(other) + u"\\3", u"win32");
  workbench.prompts().Will(std::vector{project});
  mnuVBreferences(workbench, registry);
  EXPECT_EQ(Row(1)[3], TextOfPath(used));
  EXPECT_EQ(Row(1)[5], u"登记在别处");
  EXPECT_EQ(Row(1)[6], TextOfPath(other));
}

TEST_F(ReferencesTest, TypeLibrariesAreListedByNameOrFile) {
  Register(u"C:\\a.tlb", u"win32");
  Register(u"C:\\b.tlb", u"win64");
  Register(u"C:\\c.tlb", u"win64", u"3.1f");
  workbench.prompts().Will(std::u16string(u"*"));
  mnuTypeLibraries(workbench, registry);
  EXPECT_EQ(Row(1), (std::vector<std::u16string>{u"OLE Automation", u"2.0", u"0", u"C:\\a.tlb", u"不在", u"32、64",
                                                 std::u16string(kGuid)}));
  EXPECT_EQ(Row(2)[1], u"3.31");
  EXPECT_EQ(workbench.status, u"类型库2个");
  workbench.editor().SetText(u"");
  workbench.prompts().Will(std::u16string(u"C.TLB"));
  mnuTypeLibraries(workbench, registry);
  EXPECT_EQ(Row(1)[3], u"C:\\c.tlb");
  workbench.editor().SetText(u"");
  workbench.prompts().Will(std::u16string());
  mnuTypeLibraries(workbench, registry);
  EXPECT_EQ(workbench.editor().Text(), u"");
}

}  // namespace
}  // namespace scrivanta::testing
