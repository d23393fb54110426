#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"
#include "tables/DownloadLinks.h"
#include "tables/WrappedLink.h"
#include "text/Encoding.h"
#include "text/Utf16.h"

namespace scrivanta::testing {
namespace {

std::u16string Joined(const DownloadLinks& links) {
  std::u16string text;
  for (const std::u16string& link : links.links()) {
    text += link + u"\n";
  }
  return text;
}

std::u16string LinksIn(std::string_view bytes) {
  DownloadLinks links;
  links.AddBytes(bytes);
  return Joined(links);
}

std::string Utf16(ByteOrder order, std::u16string_view text) {
  std::string bytes;
  EncodeUtf16Append(order, text, bytes);
  return bytes;
}

TEST(DownloadLinks, EndWhereTheTextGoesOn) {
  struct Case {
    std::u16string_view text;
    std::u16string_view links;
  };
  constexpr Case kCases[] = {
      {u"", u""},
      {u"http:// https://// ftp:/x magnet:?dn=1 ed2k://|file|a", u""},
      {u"见http://a.cn/b.zip，谢谢", u"http://a.cn/b.zip\n"},
      {u"（https://a.cn/1） <a href='ftp://u:p@b.cn/2'>", u"https://a.cn/1\nftp://u:p@b.cn/2\n"},
      {u"see http://a.cn/x. (http://a.cn/y) http://a.cn/z_(1)", u"http://a.cn/x\nhttp://a.cn/y\nhttp://a.cn/z_(1)\n"},
      {u"ftp://a.cn/【甲】乙.rmvb\n【http://a.cn/】http://a.cn/（备用）", u"ftp://a.cn/【甲】乙.rmvb\nhttp://a.cn/\n"},
      {u"HTTP://A.CN/1 http://a.cn/2 HTTP://A.CN/1", u"HTTP://A.CN/1\nhttp://a.cn/2\n"},
      {u"ed2k://|file|甲 乙，(1).avi|12|0123456789ABCDEF0123456789ABCDEF|/尾 ed2k://|file|b|1|2|h=3|/",
       u"ed2k://|file|甲 乙，(1).avi|12|0123456789ABCDEF0123456789ABCDEF|/\ned2k://|file|b|1|2|h=3|/\n"},
      {u"magnet:?xt=urn:btih:ABCDEF&dn=x\"", u"magnet:?xt=urn:btih:ABCDEF&dn=x\n"},
      {u"http://a.cn/?u=http://b.cn/", u"http://a.cn/?u=http://b.cn/\n"},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(LinksIn(Encode(Encoding::kUtf8, c.text)), c.links);
    EXPECT_EQ(LinksIn(Encode(Encoding::kGbk, c.text)), c.links);
    EXPECT_EQ(LinksIn(Utf16(ByteOrder::kLittleEndian, c.text)), c.links);
    EXPECT_EQ(LinksIn("xx" + Utf16(ByteOrder::kBigEndian, c.text) + "\1"), c.links);
  }
}

TEST(DownloadLinks, AreFoundAmongBytesOfAllKinds) {
  const std::string binary = std::string("\0\x85\xFFhttp://a.cn/\xD6\xD0\xFF\0", 20) + "Qhttp://b.cn/\xE4\xB8\xAD\x85" +
                             Utf16(ByteOrder::kLittleEndian, u"\x1中http://c.cn/中\x2") + std::string("\0:\0", 3);
  EXPECT_EQ(LinksIn(binary), u"http://a.cn/中\nhttp://b.cn/中\nhttp://c.cn/中\n");
}

TEST(DownloadLinks, AreUnwrapped) {
  struct Case {
    std::string_view wrapped;
    std::u16string_view link;
  };
  constexpr Case kCases[] = {
      {"thunder://QUFodHRwOi8vYS5jbi8xWlo=", u"http://a.cn/1"},
      {"Thunder://QUFodHRwOi8vYS5jbi8xWlo/", u"http://a.cn/1"},    // no padding, a slash behind it
      {"thunder://QUFodHRwOi8vYS5jbi8xWlo%3D", u"http://a.cn/1"},  // escaped
      {"thunder://QUFmdHA6Ly9hLmNuL9bQWlo=", u"ftp://a.cn/中"},    // GBK inside
      {"thunder://QUFmdHA6Ly9hLmNuL+S4rVpa", u"ftp://a.cn/中"},    // UTF-8 inside
      {"flashget://W0ZMQVNIR0VUXWh0dHA6Ly9hLmNuLzFbRkxBU0hHRVRd&abc", u"http://a.cn/1"},
      {"qqdl://aHR0cDovL2EuY24vMQ==", u"http://a.cn/1"},
      {"thunderxl://aHR0cDovL2EuY24vMQ", u"http://a.cn/1"},
      {"qqdl://dGh1bmRlcjovL1FVRm9kSFJ3T2k4dllTNWpiaTh4V2xvPQ==", u"http://a.cn/1"},  // twice
      // What is no address inside stays as it is.
      {"thunder://aHR0cDovL2EuY24vMQ==", u"thunder://aHR0cDovL2EuY24vMQ=="},
      {"qqdl://YWJj", u"qqdl://YWJj"},
      {"qqdl://aHR0cDovL2EK", u"qqdl://aHR0cDovL2EK"},  // a line break inside
      {"thunder://!", u"thunder://"},
  };
  for (const Case& c : kCases) {
    const std::u16string expected = c.link.ends_with(u"//") ? u"" : std::u16string(c.link) + u"\n";
    EXPECT_EQ(LinksIn(c.wrapped), expected) << c.wrapped;
  }
}

// A file is read in blocks; an address may lie across their border.
TEST(DownloadLinks, AreWholeWhereverTheyLieInAFile) {
  constexpr std::size_t kBlock = 256 * 1024;
  TemporaryFolder folder;
  NoProgress progress;
  const std::string link = Utf16(ByteOrder::kLittleEndian, u"http://a.cn/一二三");
  for (std::size_t before = kBlock - link.size() - 3; before < kBlock + 3; ++before) {
    DownloadLinks links;
    links.AddFile(folder.Put("a.cfg", std::string(before, 'x') + link + std::string(kBlock, '\0')), progress);
    ASSERT_EQ(Joined(links), u"http://a.cn/一二三\n") << before;
  }
  DownloadLinks links;
  links.AddFile(folder.Put("b.cfg", "http://" + std::string(3 * kBlock, 'a') + " http://b.cn/"), progress);
  EXPECT_EQ(Joined(links), u"http://b.cn/\n");
}

}  // namespace
}  // namespace scrivanta::testing
