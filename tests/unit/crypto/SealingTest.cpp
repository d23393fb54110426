#include <random>

#include <gtest/gtest.h>

#include "crypto/Sealing.h"
#include "text/ExplainedError.h"

namespace scrivanta {
namespace {

constexpr SealingCost kCheap{.passes = 1, .kibibytes = 8};
constexpr std::u16string_view kPassword = u"口令 pass";

// Made with PyNaCl as docs/CIPHERS.md describes it, with the salt 00 to 0F, one pass and 8 KiB.
constexpr std::string_view kMadeElsewhere =
    "-----BEGIN SCRIVANTA SEALED TEXT-----\n"
    "U0NSVlNFQUwBAQAAAAgAAAAAAQIDBAUGBwgJCgsMDQ4Pp5oLUTqeV5V33PubQ99oB48BXI5nUe+D\n"
    "8G10X02pnzDh1TdXue6iIorM1d1rq7pyaeIkHX5zWfg=\n"
    "-----END SCRIVANTA SEALED TEXT-----\n";
constexpr std::string_view kPlaintext = "重庆 letter\r\n";

std::string Sealed(std::string_view bytes) {
  MemorySource source(bytes);
  StringSink sink;
  NoProgress progress;
  Seal(kPassword, source, sink, progress, kCheap);
  return sink.bytes();
}

std::string Unsealed(std::string_view sealed, std::u16string_view password = kPassword) {
  MemorySource source(sealed);
  StringSink sink;
  NoProgress progress;
  Unseal(password, source, sink, progress);
  return sink.bytes();
}

std::string FaultOf(std::string_view sealed, std::u16string_view password = kPassword) {
  try {
    Unsealed(sealed, password);
  } catch (const ExplainedError& error) {
    return error.what();
  }
  return "";
}

TEST(Sealing, IsReadHoweverItsLinesAreBroken) {
  EXPECT_EQ(Unsealed(kMadeElsewhere), kPlaintext);
  std::string wrapped = "\r\n \t";
  for (std::size_t line = 0, at = 0; at < kMadeElsewhere.size(); at = kMadeElsewhere.find('\n', at) + 1, ++line) {
    const std::string_view text = kMadeElsewhere.substr(at, kMadeElsewhere.find('\n', at) - at);
    const bool isOfBase64 = line == 1 || line == 2;
    wrapped += isOfBase64 ? std::string(text).insert(5, "\n\n  ") : std::string(text) + " ";
    wrapped += "\r\n";
  }
  EXPECT_EQ(Unsealed(wrapped), kPlaintext);
}

TEST(Sealing, GivesBackBytesOfAnyLength) {
  std::minstd_rand random(5);
  for (const std::size_t length : {0U, 1U, 33U, 57U, 65'535U, 65'536U, 65'537U, 131'072U, 200'000U}) {
    std::string bytes(length, '\0');
    std::generate(bytes.begin(), bytes.end(), [&random] { return static_cast<char>(random() >> 8U); });
    const std::string sealed = Sealed(bytes);
    EXPECT_EQ(sealed.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/=- \r\n"),
              std::string::npos);
    EXPECT_TRUE(Unsealed(sealed) == bytes) << length;
    EXPECT_NE(sealed, Sealed(bytes)) << "the salt is new each time";
  }
}

TEST(Sealing, RefusesWhatWasChanged) {
  const std::string_view sealed = kMadeElsewhere;
  for (std::size_t at = 0; at < sealed.size(); ++at) {
    std::string changed(sealed);
    changed[at] = changed[at] == 'A' ? 'B' : 'A';
    const bool isLineEnd = sealed[at] == '\n';
    EXPECT_NE(FaultOf(changed), "") << at << (isLineEnd ? ", a line end" : "");
  }
  const std::string large = Sealed(std::string(200'000, 'x'));
  const std::size_t middle = large.size() / 2;
  for (const std::string& broken :
       {std::string(large).replace(middle, 1, large[middle] == 'A' ? "B" : "A"), large.substr(0, middle),
        std::string(large).erase(middle, 78), large + "x", large + large, std::string(large).insert(middle, "A"),
        // Whole chunks of 65,553 bytes left out at the end.
        large.substr(0, 120'000) + "\r\n-----END SCRIVANTA SEALED TEXT-----"}) {
    EXPECT_EQ(FaultOf(broken), "the sealed text was changed or cut");
  }
  EXPECT_EQ(FaultOf(sealed, u"口令 pass "), "wrong password, or the sealed text was changed");
  EXPECT_EQ(FaultOf(""), "this is no sealed text, or only a part of one");
}

// In the first line of Base64: the version is the last character of the third group of four, then passes and KiB.
TEST(Sealing, RefusesAVersionOrACostBeyondItsOwn) {
  std::string later(kMadeElsewhere);
  later.replace(later.find("QUwB"), 4, "QUwC");
  EXPECT_EQ(FaultOf(later), "this was sealed by a later version of the program");
  std::string costly(kMadeElsewhere);
  costly.replace(costly.find("BAQAAAAg"), 8, "BAQAA/wg");
  EXPECT_EQ(FaultOf(costly), "the sealed text asks for more time or memory than is allowed");
}

}  // namespace
}  // namespace scrivanta
