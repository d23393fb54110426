// Base64 of text and files: of the text's bytes in code page 936, with GB18030's four-byte forms for what that lacks,
// so any text without a NUL comes back exactly. One unbroken line.
//
// Nothing is reported: an operation that fails ends without a word.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace scrivanta {

class CBase64EnDeCode {
 public:
  static std::u16string Base64StringEncode(std::u16string_view text);
  // Up to the first NUL. Characters outside the alphabet count as zero bits; empty when the length is two or three more
  // than a multiple of four.
  static std::u16string Base64StringDecode(std::u16string_view text);

  // Mind the order: the source comes first here, and second in Base64FileDecode. The target is not emptied first.
  static void Base64FileEncode(const std::filesystem::path& source, const std::filesystem::path& target);
  static void Base64FileDecode(const std::filesystem::path& target, const std::filesystem::path& source);
};

}  // namespace scrivanta
