#include <algorithm>
#include <memory>

#include <CLI/CLI.hpp>

#include "batch/BatchCommand.h"
#include "batch/Choice.h"
#include "crypto/Base64.h"
#include "crypto/NumericCipher.h"
#include "crypto/RijndaelStream.h"
#include "crypto/RijndaelText.h"
#include "crypto/RndXorHash.h"
#include "crypto/Sealing.h"
#include "text/Encoding.h"
#include "text/ExplainedError.h"
#include "text/LineReader.h"
#include "text/ReadAll.h"

namespace scrivanta {

namespace {

std::u16string ReadText(BatchContext& context) {
  return Decode(context.encoding, ReadAll(context.input, context.progress));
}

ExitStatus WriteText(BatchContext& context, std::u16string_view text) {
  context.output.Write(Encode(context.encoding, text));
  return ExitStatus::kDone;
}

ExitStatus RunBase64Encode(BatchContext& context) {
  EncodeBase64Stream(context.input, context.output, context.progress);
  return ExitStatus::kDone;
}

// Base64 comes in lines as often as not, and a line end is none of it.
class WithoutLineEnds final : public ByteSource {
 public:
  explicit WithoutLineEnds(ByteSource& source) : source_(source) {}

  std::size_t Read(std::span<char> buffer) override {
    while (const std::size_t count = source_.Read(buffer)) {
      const auto rest = std::ranges::remove_if(buffer.first(count), [](char c) { return c == '\r' || c == '\n'; });
      if (rest.size() < count) {
        return count - rest.size();
      }
    }
    return 0;
  }
  std::optional<std::uint64_t> Size() const override { return source_.Size(); }

 private:
  ByteSource& source_;
};

ExitStatus RunBase64Decode(BatchContext& context) {
  WithoutLineEnds text(context.input);
  if (!DecodeBase64Stream(text, context.output, context.progress)) {
    throw std::runtime_error("the input is no Base64 text: its length without line ends is not a multiple of four");
  }
  return ExitStatus::kDone;
}

struct PasswordOptions {
  std::string password;
  std::string file;
};

void AddPasswordOptions(CLI::App& parser, PasswordOptions& options) {
  CLI::Option* password =
      parser.add_option("--password", options.password, "Password; other users of the machine can see it");
  parser.add_option("--password-file", options.file, "File (UTF-8) whose first line is the password")
      ->type_name("FILE")
      ->excludes(password);
}

std::u16string Password(const PasswordOptions& options) {
  std::string password = options.password;
  if (!options.file.empty()) {
    FileSource source(PathFromUtf8(options.file));
    NoProgress progress;
    LineReader reader(source, LineEnds::kCrLfOrLf, progress);
    password = reader.Next() ? reader.line() : "";
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (password.starts_with(kByteOrderMark)) {
      password.erase(0, kByteOrderMark.size());
    }
  }
  if (password.empty()) {
    throw UnusableArguments("a password is required: --password or --password-file");
  }
  return Decode(Encoding::kUtf8, password);
}

struct RijndaelOptions {
  PasswordOptions password;
  int bits = 256;
  bool text = false;
  int blockSize = 256;

  RijndaelKey Key() const { return {PasswordBytes(Password(password)), bits}; }
};

std::shared_ptr<RijndaelOptions> AddRijndaelOptions(CLI::App& parser) {
  auto options = std::make_shared<RijndaelOptions>();
  AddPasswordOptions(parser, options->password);
  AddChoice(parser, "--bits", options->bits, {{"128", 128}, {"192", 192}, {"256", 256}},
            "Bits of the key: 128, 192 or 256 (default)");
  parser.add_flag("--text", options->text, "The ciphertext is hexadecimal text, as the window makes it");
  return options;
}

ExitStatus EncryptText(BatchContext& context, const RijndaelOptions& options) {
  const std::u16string text = ReadText(context);
  RefuseNul(text);
  return WriteText(context, EncryptText(options.Key(), FastestRijndael(), text, options.blockSize));
}

ExitStatus DecryptText(BatchContext& context, const RijndaelOptions& options, bool acceptsGarbled) {
  const DecryptedText result = DecryptText(options.Key(), FastestRijndael(), ReadText(context));
  switch (result.outcome) {
    case DecryptedText::Outcome::kNotHexadecimal:
      throw std::runtime_error("error: not hexadecimal data");
    case DecryptedText::Outcome::kNotWholeBlocks:
      throw std::runtime_error("the ciphertext is not a whole number of blocks");
    case DecryptedText::Outcome::kNotWhole:
      throw std::runtime_error("this is not the text that was encrypted. Wrong key or keysize?");
    case DecryptedText::Outcome::kDone:
      break;
  }
  if (!acceptsGarbled && LooksGarbled(result.text)) {
    throw std::runtime_error("the text looks garbled. Wrong key or keysize? --accept-garbled writes it all the same");
  }
  return WriteText(context, result.text);
}

ExitStatus DecryptFile(BatchContext& context, const RijndaelOptions& options) {
  switch (DecryptStream(options.Key(), FastestRijndael(), context.input, context.output, context.progress)) {
    case DecryptOutcome::kWrongSize:
      throw std::runtime_error("File Size Error - ciphertext file not a multiple of block size");
    case DecryptOutcome::kWrongLengthField:
      throw std::runtime_error("incorrect length field in decrypted file. Wrong key or keysize?");
    case DecryptOutcome::kDone:
      break;
  }
  return ExitStatus::kDone;
}

BatchWork ConfigureRijndaelEncrypt(CLI::App& parser) {
  const std::shared_ptr<RijndaelOptions> options = AddRijndaelOptions(parser);
  parser.add_option("--block-size", options->blockSize, "Bits in a group of the hexadecimal text (default 256)")
      ->needs("--text")
      ->check(CLI::Range(8, 1 << 30).description(""))
      ->type_name("BITS");
  return [options](BatchContext& context) {
    if (options->text) {
      return EncryptText(context, *options);
    }
    EncryptStream(options->Key(), FastestRijndael(), context.input, context.output, context.progress);
    return ExitStatus::kDone;
  };
}

BatchWork ConfigureRijndaelDecrypt(CLI::App& parser) {
  const std::shared_ptr<RijndaelOptions> options = AddRijndaelOptions(parser);
  parser.add_option("--block-size", options->blockSize, "Accepted, and without effect: any grouping is read")
      ->needs("--text")
      ->type_name("BITS");
  const auto acceptsGarbled = std::make_shared<bool>(false);
  parser
      .add_flag("--accept-garbled", *acceptsGarbled,
                "Write a text too that holds control characters or bytes of no character, as a wrong key makes it")
      ->needs("--text");
  return [options, acceptsGarbled](BatchContext& context) {
    return options->text ? DecryptText(context, *options, *acceptsGarbled) : DecryptFile(context, *options);
  };
}

struct RndXorHashOptions {
  PasswordOptions password;
  std::int16_t keySize = 0;  // 0: none given, and the hashes are those of a new object

  RndXorHash Cipher() const {
    RndXorHash cipher;
    if (keySize != 0) {
      cipher.KeySize(keySize);
    }
    return cipher;
  }
};

std::shared_ptr<RndXorHashOptions> AddRndXorHashOptions(CLI::App& parser) {
  auto options = std::make_shared<RndXorHashOptions>();
  AddPasswordOptions(parser, options->password);
  parser
      .add_option("--key-size", options->keySize,
                  "Characters of a hash. Without it they are 8; with it, even as 8, the hashes are others")
      ->check(CLI::Range(1, 32'767).description(""))
      ->type_name("N");
  return options;
}

// The time only serves as a salt, so the zone does not matter.
std::chrono::local_time<std::chrono::milliseconds> Now() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::local_time<std::chrono::milliseconds>(std::chrono::floor<std::chrono::milliseconds>(now));
}

BatchWork ConfigureRndXorHashEncrypt(CLI::App& parser) {
  const std::shared_ptr<RndXorHashOptions> options = AddRndXorHashOptions(parser);
  return [options](BatchContext& context) {
    const std::u16string password = Password(options->password);
    return WriteText(context, options->Cipher().Encrypt(ReadText(context), password, Now()));
  };
}

BatchWork ConfigureRndXorHashDecrypt(CLI::App& parser) {
  const std::shared_ptr<RndXorHashOptions> options = AddRndXorHashOptions(parser);
  return [options](BatchContext& context) {
    const std::u16string password = Password(options->password);
    const RndXorHashResult result = options->Cipher().Decrypt(ReadText(context), password);
    switch (result.check) {
      case RndXorHashCheck::kWrongPassword:
        throw std::runtime_error("the password is not correct");
      case RndXorHashCheck::kAltered:
        throw std::runtime_error("the ciphertext has been altered, its integrity check fails");
      case RndXorHashCheck::kMalformed:
        throw std::runtime_error("the ciphertext is not hexadecimal text");
      case RndXorHashCheck::kPassed:
        break;
    }
    return WriteText(context, result.plaintext);
  };
}

using SealingWork = void (*)(std::u16string_view password, ByteSource& source, ByteSink& sink, Progress& progress);

BatchWork ConfigureSealing(CLI::App& parser, SealingWork work) {
  const auto options = std::make_shared<PasswordOptions>();
  AddPasswordOptions(parser, *options);
  return [options, work](BatchContext& context) {
    work(Password(*options), context.input, context.output, context.progress);
    return ExitStatus::kDone;
  };
}

void SealAtUsualCost(std::u16string_view password, ByteSource& source, ByteSink& sink, Progress& progress) {
  Seal(password, source, sink, progress);
}

std::shared_ptr<std::string> AddNumericKey(CLI::App& parser) {
  auto key = std::make_shared<std::string>();
  parser.add_option("--key", *key, "A whole number, at most " + std::to_string(kLargestNumericKey))
      ->required()
      ->type_name("N");
  return key;
}

std::uint64_t UsableNumericKey(std::string_view key) {
  try {
    return NumericKey(Decode(Encoding::kUtf8, key));
  } catch (const ExplainedError& error) {
    throw UnusableArguments(error.what());
  }
}

BatchWork ConfigureNumericEncrypt(CLI::App& parser) {
  const std::shared_ptr<std::string> key = AddNumericKey(parser);
  return [key](BatchContext& context) {
    const std::uint64_t number = UsableNumericKey(*key);
    return WriteText(context, TextEncrypt(ReadText(context), number));
  };
}

BatchWork ConfigureNumericDecrypt(CLI::App& parser) {
  const std::shared_ptr<std::string> key = AddNumericKey(parser);
  return [key](BatchContext& context) {
    const std::uint64_t number = UsableNumericKey(*key);
    const std::optional<std::u16string> text = TextDecrypt(ReadText(context), number);
    if (!text) {
      throw std::runtime_error(
          "the input is no list of numbers separated by single spaces that this key makes text of");
    }
    return WriteText(context, *text);
  };
}

}  // namespace

std::vector<BatchCommand> CipherBatchCommands() {
  return {
      {.name = "base64-encode",
       .description = "Encode the bytes of a file as one line of Base64",
       .example = "scrivanta-batch base64-encode letter.txt -o letter.b64",
       .configure = [](CLI::App&) -> BatchWork { return RunBase64Encode; }},
      {.name = "base64-decode",
       .description = "Decode Base64 of a text, in any number of lines; what follows a NUL in it is dropped",
       .example = "scrivanta-batch base64-decode letter.b64 -o letter.txt",
       .configure = [](CLI::App&) -> BatchWork { return RunBase64Decode; }},
      {.name = "rijndael-encrypt",
       .description = "Encrypt a file, or a text as hexadecimal text",
       .example = "scrivanta-batch rijndael-encrypt --password-file secret.txt letter.txt -o letter.enc",
       .configure = ConfigureRijndaelEncrypt},
      {.name = "rijndael-decrypt",
       .description = "Decrypt what rijndael-encrypt or the window has made",
       .example = "scrivanta-batch rijndael-decrypt --text --password-file secret.txt letter.hex -o letter.txt",
       .configure = ConfigureRijndaelDecrypt},
      {.name = "seal",
       .description = "Encrypt the bytes of a file under a password, protected against changes, as lines of ASCII",
       .example = "scrivanta-batch seal --password-file secret.txt letter.txt -o letter.sealed",
       .configure = [](CLI::App& parser) { return ConfigureSealing(parser, SealAtUsualCost); }},
      {.name = "unseal",
       .description = "Decrypt what seal or the window has made; what was changed since is refused",
       .example = "scrivanta-batch unseal --password-file secret.txt letter.sealed -o letter.txt",
       .configure = [](CLI::App& parser) { return ConfigureSealing(parser, Unseal); }},
      {.name = "rndxorhash-encrypt",
       .description = "Encrypt a text lightly, with a check of the password and of the text",
       .example = "scrivanta-batch rndxorhash-encrypt --password-file secret.txt letter.txt -o letter.hex",
       .configure = ConfigureRndXorHashEncrypt},
      {.name = "rndxorhash-decrypt",
       .description = "Decrypt what rndxorhash-encrypt has made",
       .example = "scrivanta-batch rndxorhash-decrypt --password-file secret.txt letter.hex -o letter.txt",
       .configure = ConfigureRndXorHashDecrypt},
      {.name = "numeric-encrypt",
       .description = "Turn a text into numbers under a numeric key",
       .example = "scrivanta-batch numeric-encrypt --key 20240229 letter.txt -o letter.num",
       .configure = ConfigureNumericEncrypt},
      {.name = "numeric-decrypt",
       .description = "Turn the numbers back into text",
       .example = "scrivanta-batch numeric-decrypt --key 20240229 letter.num -o letter.txt",
       .configure = ConfigureNumericDecrypt},
  };
}

}  // namespace scrivanta
