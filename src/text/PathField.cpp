#include "text/PathField.h"

#include <cstdlib>

#include "text/Encoding.h"
#include "text/PlatformFile.h"

namespace scrivanta {

std::string PathField(const std::filesystem::path& path) {
  constexpr std::string_view kHexDigits = "0123456789ABCDEF";
  std::string field;
  for (const char character : Encode(Encoding::kUtf8, TextOfPath(path))) {
    const auto byte = static_cast<unsigned char>(character);
    if (byte < ' ' || character == '%') {
      field += {'%', kHexDigits[byte >> 4U], kHexDigits[byte & 0xFU]};
    } else {
      field += character;
    }
  }
  return field;
}

std::filesystem::path PathOfField(std::string_view field) {
  constexpr int kHexadecimal = 16;
  std::string path;
  for (std::size_t index = 0; index < field.size(); ++index) {
    if (field[index] == '%' && index + 2 < field.size()) {
      path += static_cast<char>(std::strtol(std::string(field.substr(index + 1, 2)).c_str(), nullptr, kHexadecimal));
      index += 2;
    } else {
      path += field[index];
    }
  }
  return PathOfText(Decode(Encoding::kUtf8, path));
}

}  // namespace scrivanta
