#include <gtest/gtest.h>

#include "support/BatchRun.h"
#include "support/TemporaryFolder.h"

namespace scrivanta::testing {
namespace {

using Arguments = std::vector<std::string>;

// Both ways through a pair of commands with the same options; gives the ciphertext.
std::string ExpectRoundTrip(const std::string& pair, const Arguments& options, std::string_view plaintext) {
  Arguments encrypt = {pair + "-encrypt"};
  Arguments decrypt = {pair + "-decrypt"};
  encrypt.insert(encrypt.end(), options.begin(), options.end());
  decrypt.insert(decrypt.end(), options.begin(), options.end());
  const BatchResult encrypted = RunBatchOn(plaintext, encrypt);
  EXPECT_EQ(encrypted.status, 0) << encrypted.errors;
  const BatchResult back = RunBatchOn(encrypted.output, decrypt);
  EXPECT_EQ(back.status, 0) << back.errors;
  EXPECT_TRUE(back.output == plaintext) << pair;
  return encrypted.output;
}

TEST(CipherCommands, GoBothWays) {
  const std::string gbkText = "plain \xD6\xD0\xCE\xC4 \x94\x39\xDA\x33\r\ntail\n";
  const std::string gbk =
      "plain \xD6\xD0\xCE\xC4 \x94\x39\xDA\x33\r\n\xFFtail\n";  // four bytes, and one that is no text
  const std::string utf8 = "plain 中文 \U0001F600\r\ntail\n";
  for (const char* bits : {"128", "192", "256"}) {
    EXPECT_EQ(ExpectRoundTrip("rijndael", {"--password", "密码", "--bits", bits}, std::string(40, '\0')).size(), 48U);
    ExpectRoundTrip("rijndael", {"--password", "密码", "--bits", bits, "--text"}, gbkText);
    ExpectRoundTrip("rijndael", {"--password", "密码", "--bits", bits, "--text", "--encoding", "utf-8"}, utf8);
  }
  ExpectRoundTrip("rijndael", {"--password", "p", "--text", "--block-size", "64"}, gbkText);
  ExpectRoundTrip("rndxorhash", {"--password", "密码"}, gbk + std::string("\0", 1));
  ExpectRoundTrip("rndxorhash", {"--password", "密码", "--key-size", "20", "--encoding", "utf-8"}, utf8);
  EXPECT_EQ(ExpectRoundTrip("numeric", {"--key", "5"}, "A"), "101");
  EXPECT_EQ(ExpectRoundTrip("numeric", {"--key", "12"}, "A\n\xD6\xD0"), "79 4 -10530");
  EXPECT_EQ(ExpectRoundTrip("numeric", {"--key", "12", "--encoding", "utf-8"}, "中"), "-10530");
}

TEST(CipherCommands, EncodeBase64AsTheBytesStand) {
  EXPECT_EQ(RunBatchOn("\xD6\xD0", {"base64-encode"}).output, "1tA=");
  EXPECT_EQ(RunBatchOn("\xD6\xD0", {"base64-encode", "--encoding", "utf-8"}).output, "1tA=");
  EXPECT_EQ(RunBatchOn(std::string("\0\n", 2), {"base64-encode"}).output, "AAo=");
  EXPECT_EQ(RunBatchOn("1tA=", {"base64-decode"}).output, "\xD6\xD0");
  EXPECT_EQ(RunBatchOn("QQBC", {"base64-decode"}).output, "A");
  EXPECT_EQ(RunBatchOn("", {"base64-decode"}).status, 0);
}

// The text form is the window's: the same ciphertext whatever the encoding of the file.
TEST(CipherCommands, MakeTheSameTextOfEveryEncoding) {
  const std::string fromGbk = RunBatchOn("\xD6\xD0\xCE\xC4", {"rijndael-encrypt", "--text", "--password", "1"}).output;
  EXPECT_EQ(RunBatchOn("中文", {"rijndael-encrypt", "--text", "--password", "1", "--encoding", "utf-8"}).output,
            fromGbk);
  EXPECT_EQ(fromGbk.size(), 32U);
  const std::string groups =
      RunBatchOn("\xD6\xD0\xCE\xC4", {"rijndael-encrypt", "--text", "--password", "1", "--block-size", "64"}).output;
  EXPECT_EQ(groups, fromGbk.substr(0, 16) + "  " + fromGbk.substr(16));
}

TEST(CipherCommands, TakeThePasswordFromAFile) {
  const TemporaryFolder folder;
  const std::string ciphertext = RunBatchOn("text", {"rijndael-encrypt", "--password", "密 码"}).output;
  for (const char* bytes : {"密 码", "密 码\n", "密 码\r\nsecond line\n", "\xEF\xBB\xBF密 码\n"}) {
    const std::string file = folder.Put("password", bytes).string();
    EXPECT_EQ(RunBatchOn(ciphertext, {"rijndael-decrypt", "--password-file", file}).output, "text");
  }
}

TEST(CipherCommands, SayInOneLineWhatWentWrong) {
  const std::string rndXor = RunBatchOn("text", {"rndxorhash-encrypt", "--password", "p"}).output;
  const std::string rijndael = RunBatchOn("text", {"rijndael-encrypt", "--password", "p"}).output;
  struct Case {
    Arguments arguments;
    std::string input;
    int status;
    std::string error;
  };
  const Case cases[] = {
      {{"base64-decode"},
       "QUJDQQ",
       3,
       "the input is no Base64 text: its length without line ends is not a multiple of four"},
      {{"rijndael-decrypt", "--password", "p"},
       "15 bytes of text",
       3,
       "incorrect length field in decrypted file. Wrong key or keysize?"},
      {{"rijndael-decrypt", "--password", "other"},
       rijndael,
       3,
       "incorrect length field in decrypted file. Wrong key or keysize?"},
      {{"rijndael-decrypt", "--password", "p"},
       "short",
       3,
       "File Size Error - ciphertext file not a multiple of block size"},
      {{"rijndael-decrypt", "--password", "p"},
       "",
       3,
       "File Size Error - ciphertext file not a multiple of block size"},
      {{"rijndael-decrypt", "--text", "--password", "p"}, "xyz", 3, "error: not hexadecimal data"},
      {{"rijndael-decrypt", "--text", "--password", "p"}, "00", 3, "the ciphertext is not a whole number of blocks"},
      {{"rijndael-encrypt", "--text", "--password", "p"},
       std::string("a\0b", 3),
       3,
       "the text holds a NUL character, where it would end when it is decrypted"},
      {{"rndxorhash-decrypt", "--password", "other"}, rndXor, 3, "the password is not correct"},
      {{"rndxorhash-decrypt", "--password", "p"},
       rndXor.substr(0, rndXor.size() - 3),
       3,
       "the ciphertext has been altered, its integrity check fails"},
      {{"rndxorhash-decrypt", "--password", "p"}, "no digits", 3, "the ciphertext is not hexadecimal text"},
      {{"numeric-decrypt", "--key", "12"},
       "79,76",
       3,
       "the input is no list of numbers separated by single spaces that this key makes text of"},
      {{"numeric-encrypt", "--key", "12", "--encoding", "utf-8"},
       "ab\U0001F600",
       3,
       "character 3 is not in code page 936, so the numeric cipher has no code for it"},
      {{"numeric-encrypt", "--key", "295600128"},
       "A",
       2,
       "the numeric key is too large: at most 295600127 can be used"},
      {{"numeric-encrypt", "--key", "12a"}, "A", 2, "the numeric key must consist of digits"},
      {{"rijndael-encrypt"}, "A", 2, "a password is required: --password or --password-file"},
      {{"rijndael-encrypt", "--password", ""}, "A", 2, "a password is required: --password or --password-file"},
  };
  for (const Case& c : cases) {
    const BatchResult result = RunBatchOn(c.input, c.arguments);
    EXPECT_EQ(result.status, c.status) << c.error;
    EXPECT_EQ(result.errors, "scrivanta-batch: " + c.error + "\n");
    EXPECT_EQ(result.output, "");
  }
  for (const Arguments& arguments : {Arguments{"rijndael-encrypt", "--password", "p", "--bits", "160"},
                                     {"rijndael-encrypt", "--password", "p", "--password-file", "f"},
                                     {"rijndael-encrypt", "--password", "p", "--block-size", "128"},
                                     {"rijndael-encrypt", "--password", "p", "--text", "--block-size", "7"},
                                     {"rndxorhash-encrypt", "--password", "p", "--key-size", "0"},
                                     {"rndxorhash-encrypt", "--password", "p", "--key-size", "40000"},
                                     {"numeric-encrypt"},
                                     {"numeric-encrypt", "--key", "-5"}}) {
    EXPECT_EQ(RunBatchOn("A", arguments).status, 2) << arguments.back();
  }
}

TEST(CipherCommands, DecodeBase64OfSeveralLines) {
  EXPECT_EQ(RunBatchOn("QUJ\r\nDREVG\n", {"base64-decode"}).output, "ABCDEF");
  EXPECT_EQ(RunBatchOn("\n\n", {"base64-decode"}).output, "");
  const std::string text(300'000, 'x');
  std::string lines = RunBatchOn(text, {"base64-encode"}).output;
  for (std::size_t at = 76; at < lines.size(); at += 77) {
    lines.insert(at, "\n");
  }
  EXPECT_TRUE(RunBatchOn(lines, {"base64-decode"}).output == text);
}

// A wrong key, as the output may be the input.
TEST(CipherCommands, WriteNoTextThatIsNotWholeOrLooksGarbled) {
  const Arguments decrypt = {"rijndael-decrypt", "--text", "--password"};
  const auto run = [&decrypt](const std::string& input, std::vector<std::string> rest) {
    rest.insert(rest.begin(), decrypt.begin(), decrypt.end());
    return RunBatchOn(input, rest);
  };
  const std::string bell = RunBatchOn("a\a\xFF", {"rijndael-encrypt", "--text", "--password", "p"}).output;
  EXPECT_EQ(run(bell, {"p"}).status, 3);
  EXPECT_EQ(run(bell, {"p", "--accept-garbled"}).output, "a\a\xFF");
  EXPECT_EQ(run("", {"p"}).output, "");
  EXPECT_EQ(run("", {"p"}).status, 0) << "an empty text is encrypted to an empty one";
  const TemporaryFolder folder;
  for (const char* text : {"short", "a text of more than one block\r\n"}) {
    const std::string ciphertext = RunBatchOn(text, {"rijndael-encrypt", "--text", "--password", "p"}).output;
    const std::string file = folder.Put("file", ciphertext).string();
    EXPECT_EQ(run("", {"wrong", file, "-o", file}).status, 3);
    EXPECT_EQ(ReadWholeFile(file), ciphertext);
    EXPECT_EQ(run("", {"p", file, "-o", file}).status, 0);
    EXPECT_EQ(ReadWholeFile(file), text);
  }
}

// In UTF-8 the two bytes are none, in the encoding of the ciphertext they would be one character.
TEST(CipherCommands, BringInvalidBytesBackAsTheyWere) {
  for (const std::string text : {"\xC4\xE3", "\xC4\x1F\xE3", "\xC4\x1F\x1F\xE3z\x1F",
                                 "\x81"
                                 "0\x81"
                                 "0\xC4\xE3\xC4",
                                 "\xC4\x1F", "\xF0\x9F\x92\x81x\xE3", "\xFE\xFE\xFE\xFE"}) {
    const std::string ciphertext =
        RunBatchOn(text, {"rijndael-encrypt", "--text", "--password", "p", "--encoding", "utf-8"}).output;
    const BatchResult result = RunBatchOn(
        ciphertext, {"rijndael-decrypt", "--text", "--accept-garbled", "--password", "p", "--encoding", "utf-8"});
    EXPECT_EQ(result.output, text);
  }
}

// A file onto itself, and a failure that leaves it alone.
TEST(CipherCommands, ReplaceAFileOnlyWhenTheyHaveSucceeded) {
  const TemporaryFolder folder;
  const std::string bytes(5'000'000, 'b');
  const std::string file = folder.Put("file", bytes).string();
  EXPECT_EQ(RunBatchOn("", {"rijndael-encrypt", "--password", "p", file, "-o", file}).status, 0);
  const std::string ciphertext = ReadWholeFile(file);
  EXPECT_EQ(ciphertext.size(), 5'000'016U - 5'000'000U % 16);
  EXPECT_EQ(RunBatchOn("", {"rijndael-decrypt", "--password", "wrong", file, "-o", file}).status, 3);
  EXPECT_TRUE(ReadWholeFile(file) == ciphertext);
  EXPECT_EQ(RunBatchOn("", {"rijndael-decrypt", "--password", "p", file, "-o", file}).status, 0);
  EXPECT_TRUE(ReadWholeFile(file) == bytes);
  EXPECT_EQ(RunBatchOn("", {"base64-encode", file, "-o", file}).status, 0);
  EXPECT_EQ(RunBatchOn("", {"base64-decode", file, "-o", file}).status, 0);
  EXPECT_TRUE(ReadWholeFile(file) == bytes);
}

}  // namespace
}  // namespace scrivanta::testing
