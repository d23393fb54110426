#include <random>
#include <string>

#include <gtest/gtest.h>
#include <openssl/evp.h>

#include "crypto/Base64.h"
#include "crypto/services/CBase64EnDeCode.h"
#include "support/TemporaryFolder.h"

namespace scrivanta {
namespace {

using testing::TemporaryFolder;

std::string ByOpenSsl(std::string_view bytes) {
  std::string text(bytes.size() / 3 * 4 + 5, '\0');
  const int size =
      EVP_EncodeBlock(reinterpret_cast<unsigned char*>(text.data()),
                      reinterpret_cast<const unsigned char*>(bytes.data()), static_cast<int>(bytes.size()));
  text.resize(static_cast<std::size_t>(size));
  return text;
}

std::string StreamEncoded(std::string_view bytes) {
  MemorySource source(bytes);
  StringSink sink;
  NoProgress progress;
  EncodeBase64Stream(source, sink, progress);
  return sink.bytes();
}

std::optional<std::string> StreamDecoded(std::string_view text) {
  MemorySource source(text);
  StringSink sink;
  NoProgress progress;
  return DecodeBase64Stream(source, sink, progress) ? std::optional(sink.bytes()) : std::nullopt;
}

// RFC 4648, section 10.
TEST(Base64, EncodesTheVectorsOfTheStandard) {
  const std::pair<std::u16string_view, std::u16string_view> vectors[] = {
      {u"", u""},
      {u"f", u"Zg=="},
      {u"fo", u"Zm8="},
      {u"foo", u"Zm9v"},
      {u"foob", u"Zm9vYg=="},
      {u"fooba", u"Zm9vYmE="},
      {u"foobar", u"Zm9vYmFy"},
      {u"A", u"QQ=="},
      {u"AB", u"QUI="},
      {u"ABC", u"QUJD"},
      {u"中", u"1tA="},  // D6 D0
  };
  for (const auto& [text, encoded] : vectors) {
    EXPECT_EQ(CBase64EnDeCode::Base64StringEncode(text), encoded);
    EXPECT_EQ(CBase64EnDeCode::Base64StringDecode(encoded), text);
  }
}

TEST(Base64, AgreesWithOpenSslAMillionTimes) {
  std::mt19937_64 random(4648);
  std::string bytes;
  for (int i = 0; i < 1'000'000; ++i) {
    bytes.resize(random() % 48);
    for (char& byte : bytes) {
      byte = static_cast<char>(random());
    }
    const std::string text = EncodeBase64(bytes);
    ASSERT_EQ(text, ByOpenSsl(bytes));
    ASSERT_EQ(DecodeBase64(text), bytes.substr(0, bytes.find('\0')));
  }
}

TEST(Base64, StreamsAsItDoesInMemory) {
  std::mt19937 random(3);
  for (const std::size_t size : {0U, 1U, 2U, 3U, 786'431U, 786'432U, 786'433U, 1'572'864U, 2'000'001U}) {
    std::string bytes(size, '\0');
    for (char& byte : bytes) {
      byte = static_cast<char>(random() % 255 + 1);
    }
    const std::string text = EncodeBase64(bytes);
    EXPECT_TRUE(StreamEncoded(bytes) == text) << size;
    EXPECT_TRUE(StreamDecoded(text) == bytes) << size;
    if (size > 800'000) {
      bytes[size / 2] = '\0';
      EXPECT_TRUE(StreamDecoded(EncodeBase64(bytes)) == bytes.substr(0, size / 2)) << size;
      EXPECT_FALSE(StreamDecoded(EncodeBase64(bytes) + "AA")) << size;
    }
  }
}

TEST(Base64, DecodesWhatIsNotQuiteBase64) {
  struct Case {
    std::string_view text;
    std::optional<std::string> bytes;
  };
  const Case cases[] = {
      {"QU*D", "A@\x03"},        // a character outside the alphabet counts as zero bits
      {"QUJDQUJD\n", "ABCABC"},  // one character too many is passed over
      {"Q", ""},
      {"QUJDQQ", std::nullopt},
      {"QUJDQQ=", std::nullopt},
      {"QQ==QUJD", "A"},  // the padding decodes to a NUL, which ends the text
      {"QQBCQUJD", "A"},  // and so does any other
      {"====", ""},
      {"\xD6\xD0\xD6\xD0", ""},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(DecodeBase64(c.text), c.bytes) << c.text;
    EXPECT_EQ(StreamDecoded(c.text), c.bytes) << c.text;
  }
  EXPECT_EQ(CBase64EnDeCode::Base64StringDecode(u"QUJDQQ"), u"");
}

TEST(Base64, WithstandsEveryChangedCharacterAndEveryLength) {
  const std::string text = EncodeBase64("forty bytes of text, give or take a few.");
  for (std::size_t i = 0; i < text.size(); ++i) {
    for (int byte = 0; byte < 256; ++byte) {
      std::string changed = text;
      changed[i] = static_cast<char>(byte);
      EXPECT_EQ(DecodeBase64(changed), StreamDecoded(changed));
    }
    EXPECT_EQ(DecodeBase64(std::string_view(text).substr(0, i)).has_value(), i % 4 <= 1);
  }
}

TEST(Base64, GivesEveryTextBackExactly) {
  for (const std::u16string_view text :
       {u"中文 mixed\r\n", u"€ \u00E9 \uE000", u"\U0001F600\U00020000", u"a\xD800z", u"\xDC81", u"一\xDCFF"}) {
    EXPECT_EQ(CBase64EnDeCode::Base64StringDecode(CBase64EnDeCode::Base64StringEncode(text)), text);
  }
}

TEST(Base64, WorksOnFilesWithoutAWord) {
  const TemporaryFolder folder;
  const std::filesystem::path plain = folder.Put("plain", "\xD6\xD0 text");
  const std::filesystem::path encoded = folder.path() / "encoded";
  const std::filesystem::path back = folder.path() / "back";
  CBase64EnDeCode::Base64FileEncode(plain, encoded);
  EXPECT_EQ(ReadWholeFile(encoded), "1tAgdGV4dA==");
  CBase64EnDeCode::Base64FileDecode(back, encoded);
  EXPECT_EQ(ReadWholeFile(back), "\xD6\xD0 text");

  folder.Put("encoded", "a longer old file");
  CBase64EnDeCode::Base64FileEncode(plain, encoded);
  EXPECT_EQ(ReadWholeFile(encoded), "1tAgdGV4dA== file") << "the old tail stays";

  CBase64EnDeCode::Base64FileEncode(plain, plain);
  EXPECT_EQ(ReadWholeFile(plain), "1tAgdGV4dA==") << "a file onto itself";

  CBase64EnDeCode::Base64FileDecode(folder.path() / "none", folder.path() / "missing");
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "none"));
  CBase64EnDeCode::Base64FileEncode(plain, folder.path());  // a folder cannot be written
  CBase64EnDeCode::Base64FileDecode(back, folder.Put("cut", "QUJDQQ"));
  EXPECT_EQ(ReadWholeFile(back), "\xD6\xD0 text") << "nothing was decoded, so nothing is written over";
}

}  // namespace
}  // namespace scrivanta
