#include <string_view>

#include <gtest/gtest.h>

#include "fuzz/RunFuzz.h"
#include "tables/DownloadLinks.h"
#include "tables/WrappedLink.h"

namespace scrivanta {
namespace {

// Whatever the bytes are, an address is one line of text with a scheme.
void FuzzLinks(std::string_view bytes) {
  DownloadLinks links;
  links.AddBytes(bytes);
  for (const std::u16string& link : links.links()) {
    EXPECT_NE(link.find(u':'), std::u16string::npos);
    EXPECT_EQ(link.find_first_of(u"\r\n"), std::u16string::npos);
  }
  const auto unwrapped = UnwrapLink(bytes);
  EXPECT_TRUE(!unwrapped || unwrapped->find(u':') != std::u16string::npos);
}

TEST(Fuzz, Links) {
  static constexpr std::string_view kInputs[] = {
      "",
      "http://a.cn/x ftp://u:p@b.cn/\xD6\xD0.zip",
      "thunder://QUFodHRwOi8vYS5jbi8xWlo=",
      "flashget://W0ZMQVNIR0VUXWh0dHA6Ly9hLmNuLzFbRkxBU0hHRVRd&1",
      "qqdl://dGh1bmRlcjovL1FVRm9kSFJ3T2k4dllTNWpiaTh4V2xvPQ==",
      "ed2k://|file|a b|12|0123|/ magnet:?xt=urn:btih:1",
      std::string_view("h\0t\0t\0p\0:\0/\0/\0a\0", 16),
      std::string_view("\0h\0t\0t\0p\0:\0/\0/\0a", 16),
  };
  static constexpr std::string_view kTokens[] = {
      "://", "thunder://", "qqdl://", "ed2k://|", "|/", "%3D", "=", "AA", "ZZ", "\xEF\xBC\x88", "\xE3\x80\x90", "\xD6",
  };
  RunFuzz(FuzzLinks, kInputs, kTokens);
}

}  // namespace
}  // namespace scrivanta
