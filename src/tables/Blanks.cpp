#include "tables/Blanks.h"

#include "text/CharacterBytes.h"

namespace scrivanta {

std::size_t BlankBytes(Encoding encoding, std::string_view text) {
  if (text.starts_with(' ') || text.starts_with('\t')) {
    return 1;
  }
  const std::string_view wide = encoding == Encoding::kGbk ? "\xA1\xA1" : "\xE3\x80\x80";
  return text.starts_with(wide) ? wide.size() : 0;
}

std::string_view SkipBlanks(Encoding encoding, std::string_view text) {
  while (const std::size_t bytes = BlankBytes(encoding, text)) {
    text.remove_prefix(bytes);
  }
  return text;
}

std::size_t FindBlank(Encoding encoding, std::string_view text) {
  std::size_t at = 0;
  while (at < text.size() && BlankBytes(encoding, text.substr(at)) == 0) {
    at += CharacterBytes(encoding, text.substr(at));
  }
  return at;
}

}  // namespace scrivanta
