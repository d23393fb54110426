#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "fuzz/RunFuzz.h"
#include "system/projects/ProjectReferences.h"
#include "system/registry/RegistryFile.h"
#include "text/Encoding.h"
#include "text/ExplainedError.h"
#include "text/Utf16.h"

namespace scrivanta {
namespace {

// What is read of a file is what is read of the file that is written of it.
void FuzzRegistryBytes(std::string_view bytes) {
  try {
    const std::vector<RegistryChange> changes = ReadRegistryFile(bytes);
    EXPECT_TRUE(ReadRegistryFile(RegistryFileOf(changes)) == changes);
  } catch (const ExplainedError&) {
    // What is no such file is refused.
  }
}

void FuzzRegistryFile(std::string_view bytes) {
  FuzzRegistryBytes(bytes);
  // The newer kind, which chance would make unreadable at once.
  std::string newer = "\xFF\xFE";
  EncodeUtf16Append(ByteOrder::kLittleEndian,
                    u"Windows Registry Editor Version 5.00\r\n" + Decode(Encoding::kGbk, bytes), newer);
  FuzzRegistryBytes(newer);
}

void FuzzProject(std::string_view bytes) {
  const std::u16string text = Decode(Encoding::kGbk, bytes);
  const ProjectReferences project = ReadProject(text);
  std::size_t line = 0;
  for (const ProjectReference& reference : project.references) {
    EXPECT_GT(reference.line, line);
    line = reference.line;
    EXPECT_EQ(reference.id.has_value(), reference.kind != ReferenceKind::kProject);
    FileOfProject("folder", reference.file);
  }
  for (const UnreadReference& unread : project.unread) {
    EXPECT_FALSE(unread.text.empty());
  }
  for (const std::u16string& file : ReadProjectGroup(text)) {
    EXPECT_FALSE(file.empty());
  }
}

TEST(Fuzz, RegistryFile) {
  static constexpr std::string_view kInputs[] = {
      "REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\A]\r\n@=\"a\\\\b\\\"\"\r\n\"n\"=dword:0000000a\r\n\"d\"=-\r\n",
      "\r\n[HKEY_CURRENT_USER\\\xD6\xD0]\r\n\"b\"=hex:01,02,\\\r\n  03\r\n\"e\"=hex(2):25,00,41,00,00,00\r\n; c\r\n",
      "\r\n[-HKEY_LOCAL_MACHINE\\A\\B]\r\n[HKEY_USERS\\x]\r\n\"m\"=hex(7):41,00,00,00,00,00\r\n\"q\"=hex(b):01,00\r\n"};
  static constexpr std::string_view kTokens[] = {
      "[", "]", "[-",      "\"",   "=",        "=-",     "\\", "\\\\",  "\r\n", "@",
      ";", ",", "hex(0):", "hex:", "hex(77):", "dword:", "ff", "HKEY_", " ",    "\0"};
  RunFuzz(FuzzRegistryFile, kInputs, kTokens);
}

TEST(Fuzz, Project) {
  static constexpr std::string_view kInputs[] = {
      "Type=Exe\r\nReference=*\\G{00020430-0000-0000-C000-000000000046}#2.0#0#..\\STDOLE2.TLB#OLE Automation\r\n"
      "Object={00020430-0000-0000-C000-000000000046}#1.2#0; COMDLG32.OCX\r\nReference=*\\ALib.vbp\r\n",
      "VBGROUP 5.0\r\nStartupProject=a.vbp\r\nProject=\"b\\\xB9\xA4.vbp\"\r\n[MS Transaction "
      "Server]\r\nAutoRefresh=1\r\n"};
  static constexpr std::string_view kTokens[] = {"Reference=", "Object=", "*\\G", "*\\A", "{", "}", "#",  "; ",
                                                 "\r\n",       "\"",      "..",   "\\",   "/", ".", "ff", "Project="};
  RunFuzz(FuzzProject, kInputs, kTokens);
}

}  // namespace
}  // namespace scrivanta
