#include <string_view>

#include <gtest/gtest.h>

#include "text/PathParts.h"

namespace scrivanta {
namespace {

TEST(PathParts, SplitAPathAtItsLastSeparator) {
  struct Case {
    std::u16string_view path, folder, name, extension, saved;
  };
  const Case cases[] = {
      {u"", u"", u"", u"", u".Txt"},
      {u"notes", u"", u"notes", u"", u"notes.Txt"},
      {u"C:\\a.b\\notes", u"C:\\a.b\\", u"notes", u"", u"C:\\a.b\\notes.Txt"},
      {u"/home/汉字/笔记.txt", u"/home/汉字/", u"笔记.txt", u".txt", u"/home/汉字/笔记.txt"},
      {u"C:\\a/b\\c.tar.gz", u"C:\\a/b\\", u"c.tar.gz", u".gz", u"C:\\a/b\\c.tar.gz"},
      {u"a\\.profile", u"a\\", u".profile", u".profile", u"a\\.profile"},
      {u"a\\b.\\", u"a\\b.\\", u"", u"", u"a\\b.\\.Txt"},
      {u"dot.", u"", u"dot.", u"", u"dot..Txt"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(FolderOf(c.path), c.folder);
    EXPECT_EQ(FileNameOf(c.path), c.name);
    EXPECT_EQ(ExtensionOf(c.path), c.extension);
    EXPECT_EQ(WithTextExtension(c.path), c.saved);
  }
}

TEST(PathParts, TakeTheFileNameOutOfALine) {
  EXPECT_EQ(FileNamePart(u"D:\\资料\\一月\\表.xls"), u"表.xls");
  EXPECT_EQ(FileNamePart(u"no path/at all"), u"no path/at all");
  EXPECT_EQ(FileNamePart(u"D:\\资料\\"), u"");
}

TEST(PathParts, KnowRichTextByTheName) {
  for (const std::u16string_view path : {u"a.rtf", u"A.RTF", u"C:\\x\\b.RtF", u".rtf"}) {
    EXPECT_TRUE(IsRichTextPath(path));
  }
  for (const std::u16string_view path : {u"a.rtfx", u"artf", u"rtf", u"", u"a.rtf.txt", u"a\xFF0Ertf", u"a\u000Ertf"}) {
    EXPECT_FALSE(IsRichTextPath(path));
  }
}

}  // namespace
}  // namespace scrivanta
