#include "tables/WrappedLink.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "text/Encoding.h"
#include "text/Hexadecimal.h"
#include "text/Surrogates.h"
#include "text/Utf8.h"

namespace scrivanta {

namespace {

struct Wrapper {
  std::string_view scheme;
  std::string_view before;  // what stands before the address in the decoded text
  std::string_view behind;
};

constexpr std::array kWrappers = {
    Wrapper{"thunder://", "AA", "ZZ"},
    Wrapper{"thunderxl://", "", ""},
    Wrapper{"flashget://", "[FLASHGET]", "[FLASHGET]"},
    Wrapper{"qqdl://", "", ""},
};
constexpr int kDeepest = 8;  // links within links

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

bool BeginsWithScheme(std::string_view link, std::string_view scheme) {
  return link.size() >= scheme.size() &&
         std::equal(scheme.begin(), scheme.end(), link.begin(), [](char s, char l) { return s == Lower(l); });
}

std::string WithoutEscapes(std::string_view text) {
  std::string plain;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool isEscape = text[at] == '%' && at + 2 < text.size();
    const int high = isEscape ? HexDigitValue(static_cast<unsigned char>(text[at + 1])) : -1;
    const int low = isEscape ? HexDigitValue(static_cast<unsigned char>(text[at + 2])) : -1;
    if (high >= 0 && low >= 0) {
      plain += static_cast<char>(high * 16 + low);
      at += 2;
    } else {
      plain += text[at];
    }
  }
  return plain;
}

// The standard alphabet and the one for addresses.
int Base64Digit(char c) {
  constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  if (c == '-' || c == '_') {
    return c == '-' ? 62 : 63;
  }
  const std::size_t digit = kDigits.find(c);
  return digit == std::string_view::npos ? -1 : static_cast<int>(digit);
}

// Padding may be missing; anything else that is no Base64 gives nothing.
std::optional<std::string> DecodeUnpadded(std::string_view text) {
  while (text.ends_with('=')) {
    text.remove_suffix(1);
  }
  std::string bytes;
  std::uint32_t bits = 0;
  int count = 0;
  for (const char c : text) {
    const int digit = Base64Digit(c);
    if (digit < 0) {
      return std::nullopt;
    }
    bits = (bits << 6U) | static_cast<std::uint32_t>(digit);
    count += 6;
    if (count >= 8) {
      count -= 8;
      bytes += static_cast<char>((bits >> static_cast<unsigned>(count)) & 0xFFU);
    }
  }
  return count == 6 ? std::nullopt : std::optional(bytes);  // one digit left over is part of no byte
}

// The address in the decoded text; without what was marked, and free of what no address holds.
std::optional<std::string> AddressIn(const std::optional<std::string>& decoded, const Wrapper& wrapper) {
  if (!decoded || decoded->size() < wrapper.before.size() + wrapper.behind.size() ||
      !decoded->starts_with(wrapper.before) || !decoded->ends_with(wrapper.behind)) {
    return std::nullopt;
  }
  std::string address(*decoded, wrapper.before.size(), decoded->size() - wrapper.before.size() - wrapper.behind.size());
  const bool hasControls =
      std::any_of(address.begin(), address.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; });
  return hasControls || address.find(':') == std::string::npos ? std::nullopt : std::optional(address);
}

std::optional<std::string> UnwrapOnce(std::string_view link, const Wrapper& wrapper) {
  std::string_view rest = link.substr(wrapper.scheme.size());
  rest = rest.substr(0, rest.find('&'));  // what follows is a counter or a title
  const std::string text = WithoutEscapes(rest);
  std::optional<std::string> address = AddressIn(DecodeUnpadded(text), wrapper);
  if (!address && text.ends_with('/')) {
    // Browsers end an address without a path in a slash.
    address = AddressIn(DecodeUnpadded(std::string_view(text).substr(0, text.size() - 1)), wrapper);
  }
  return address;
}

const Wrapper* WrapperOf(std::string_view link) {
  const auto found = std::find_if(kWrappers.begin(), kWrappers.end(),
                                  [&](const Wrapper& wrapper) { return BeginsWithScheme(link, wrapper.scheme); });
  return found == kWrappers.end() ? nullptr : &*found;
}

}  // namespace

std::optional<std::u16string> UnwrapLink(std::string_view link) {
  const Wrapper* wrapper = WrapperOf(link);
  if (wrapper == nullptr) {
    return std::nullopt;
  }
  std::string address(link);
  for (int depth = 0; wrapper != nullptr; ++depth) {
    std::optional<std::string> inner = UnwrapOnce(address, *wrapper);
    if (!inner || depth == kDeepest) {
      return std::nullopt;
    }
    address = std::move(*inner);
    wrapper = WrapperOf(address);
  }
  return DecodeLinkText(address);
}

std::optional<std::u16string> DecodeLinkText(std::string_view bytes) {
  const bool isUtf8 = MeasureUtf8(bytes).bytes == bytes.size();
  std::u16string text = Decode(isUtf8 ? Encoding::kUtf8 : Encoding::kGbk, bytes);
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (IsHighSurrogate(text[at]) && at + 1 < text.size() && IsLowSurrogate(text[at + 1])) {
      ++at;
    } else if (IsSurrogate(text[at])) {
      return std::nullopt;
    }
  }
  return text;
}

}  // namespace scrivanta
