#include "crypto/RijndaelText.h"

#include <algorithm>
#include <stdexcept>

#include "crypto/HexText.h"
#include "text/Encoding.h"
#include "text/ExplainedError.h"

namespace scrivanta {

std::array<std::uint8_t, 32> PasswordBytes(std::u16string_view password) {
  const std::string bytes = Encode(Encoding::kGbk, password);
  std::array<std::uint8_t, 32> key{};
  std::copy_n(AsOctets(bytes).begin(), std::min(bytes.size(), key.size()), key.begin());
  return key;
}

std::u16string EncryptText(const RijndaelKey& key, const RijndaelForm& form, std::u16string_view text, int blockSize) {
  if (blockSize < 8) {
    throw std::invalid_argument("a group of hexadecimal text has at least 8 bits");
  }
  std::string bytes = Encode(Encoding::kGbk, text);
  bytes.resize((bytes.size() + kRijndaelBlockSize - 1) / kRijndaelBlockSize * kRijndaelBlockSize);
  const std::span<std::uint8_t> octets = AsOctets(std::span<char>(bytes));
  form.encrypt(key, octets, octets);
  return ToGroupedHex(octets, static_cast<std::size_t>(blockSize) / 8);
}

void RefuseNul(std::u16string_view text) {
  if (text.find(u'\0') != std::u16string_view::npos) {
    throw ExplainedError("the text holds a NUL character, where it would end when it is decrypted",
                         u"文本中有空字符（NUL），加密后从那里起的内容会丢失，所以没有加密。");
  }
}

DecryptedText DecryptText(const RijndaelKey& key, const RijndaelForm& form, std::u16string_view ciphertext) {
  Octets octets = FromHex(ciphertext);
  if (octets.empty()) {
    return {DecryptedText::Outcome::kNotHexadecimal, {}, false};
  }
  if (octets.size() % kRijndaelBlockSize != 0) {
    return {DecryptedText::Outcome::kNotWholeBlocks, {}, false};
  }
  form.decrypt(key, octets, octets);
  const std::string_view bytes = AsCharacters(octets);
  const std::size_t length = std::min(bytes.find('\0'), bytes.size());
  const bool onlyPadding = bytes.find_first_not_of('\0', length) == std::string_view::npos;
  return {DecryptedText::Outcome::kDone, Decode(Encoding::kGbk, bytes.substr(0, length)),
          onlyPadding && bytes.size() - length < kRijndaelBlockSize};
}

}  // namespace scrivanta
