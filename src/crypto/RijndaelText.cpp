#include "crypto/RijndaelText.h"

#include <algorithm>
#include <stdexcept>

#include "crypto/HexText.h"
#include "crypto/LoneBytes.h"
#include "text/Encoding.h"
#include "text/ExplainedError.h"
#include "text/Surrogates.h"

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
  std::string bytes = Encode(Encoding::kGbk, WithLoneBytesApart(text));
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

std::u16string EncryptWithDigits(std::u16string_view text, std::u16string_view digits) {
  RefuseNul(text);
  return EncryptText(RijndaelKey(PasswordBytes(digits), kWindowBits), FastestRijndael(), text, kWindowBits);
}

DecryptedText DecryptText(const RijndaelKey& key, const RijndaelForm& form, std::u16string_view ciphertext) {
  if (ciphertext.empty()) {
    return {};
  }
  Octets octets = FromHex(ciphertext);
  if (octets.empty()) {
    return {DecryptedText::Outcome::kNotHexadecimal, {}};
  }
  if (octets.size() % kRijndaelBlockSize != 0) {
    return {DecryptedText::Outcome::kNotWholeBlocks, {}};
  }
  form.decrypt(key, octets, octets);
  const std::string_view bytes = AsCharacters(octets);
  const std::size_t length = std::min(bytes.find('\0'), bytes.size());
  const bool onlyPadding = bytes.find_first_not_of('\0', length) == std::string_view::npos;
  const bool isWhole = length > 0 && onlyPadding && bytes.size() - length < kRijndaelBlockSize;
  return {isWhole ? DecryptedText::Outcome::kDone : DecryptedText::Outcome::kNotWhole,
          WithLoneBytesTogether(Decode(Encoding::kGbk, bytes.substr(0, length)))};
}

bool LooksGarbled(std::u16string_view text) {
  constexpr std::u16string_view kUsualControls = u"\t\n\f\r\x1A";
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isHalfOfPair = i > 0 && IsHighSurrogate(text[i - 1]);
    const bool isLoneByte = text[i] >= 0xDC80 && text[i] <= 0xDCFF && !isHalfOfPair;
    if (isLoneByte || (text[i] < u' ' && kUsualControls.find(text[i]) == std::u16string_view::npos)) {
      return true;
    }
  }
  return false;
}

}  // namespace scrivanta
