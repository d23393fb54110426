// Where an address begins and ends among other bytes.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace scrivanta {

// How the characters of an address stand in the bytes.
enum class LinkBytes { kSingle, kUtf16Le, kUtf16Be };

struct LinkStart {
  std::size_t at = 0;  // of the first byte of its scheme
  LinkBytes bytes = LinkBytes::kSingle;
};

// The first address that begins at or behind `from`; its scheme must be whole.
std::optional<LinkStart> FindLinkStart(std::string_view bytes, std::size_t from);

// The longest beginning that can be part of an address: up to a control character, a quotation mark or the like. For
// UTF-16 an even number of bytes.
std::size_t ExtentOfLink(std::string_view bytes, LinkBytes kind);

struct FoundLink {
  std::u16string address;  // decoded, unwrapped, without the punctuation of the text in which it stands
  std::size_t bytes = 0;   // that it takes
};

// The address at the beginning of what ExtentOfLink has measured; nothing when there is none after all.
std::optional<FoundLink> ReadLink(std::string_view bytes, LinkBytes kind);

}  // namespace scrivanta
