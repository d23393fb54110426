#include "tables/LinkScanner.h"

#include <algorithm>
#include <array>

#include "tables/WrappedLink.h"
#include "text/Encoding.h"
#include "text/Surrogates.h"
#include "text/Utf16.h"
#include "text/Utf8.h"

namespace scrivanta {

namespace {

struct Scheme {
  std::string_view name;
  std::string_view behind;  // what follows it
};

// One that ends like another stands before it.
constexpr std::array kSchemes = {
    Scheme{"http", "://"},     Scheme{"https", "://"},     Scheme{"sftp", "://"},  Scheme{"ftp", "://"},
    Scheme{"ftps", "://"},     Scheme{"ed2k", "://"},      Scheme{"magnet", ":?"}, Scheme{"thunder", "://"},
    Scheme{"flashget", "://"}, Scheme{"thunderxl", "://"}, Scheme{"qqdl", "://"},
};
constexpr std::u16string_view kEd2k = u"ed2k://|";
constexpr std::u16string_view kEndOfEd2k = u"|/";
constexpr std::u16string_view kEnds = u" \"'<>`\\{}|^\u3000，。；：！？、“”‘’《》〈〉「」『』…";
constexpr std::u16string_view kOpening = u"【（〔［";
constexpr std::u16string_view kClosing = u"】）〕］";
constexpr std::u16string_view kTrailing = u".,;:!?";

char16_t Lower(char16_t c) {
  return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + (u'a' - u'A')) : c;
}

// Characters of one byte of which each may have a zero byte beside it.
class Characters {
 public:
  Characters(std::string_view bytes, std::size_t at, LinkBytes kind) : bytes_(bytes), at_(at), kind_(kind) {}

  // The one so many behind the first, or before it; 0 for what is none.
  char operator[](std::ptrdiff_t offset) const {
    const std::ptrdiff_t step = kind_ == LinkBytes::kSingle ? 1 : 2;
    const std::ptrdiff_t at = static_cast<std::ptrdiff_t>(at_) + offset * step;
    const std::ptrdiff_t other = kind_ == LinkBytes::kUtf16Le ? at + 1 : kind_ == LinkBytes::kUtf16Be ? at - 1 : at;
    const auto size = static_cast<std::ptrdiff_t>(bytes_.size());
    if (std::min(at, other) < 0 || std::max(at, other) >= size) {
      return '\0';
    }
    const bool isAlone = kind_ == LinkBytes::kSingle || bytes_[static_cast<std::size_t>(other)] == '\0';
    return isAlone ? bytes_[static_cast<std::size_t>(at)] : '\0';
  }

 private:
  std::string_view bytes_;
  std::size_t at_;
  LinkBytes kind_;
};

bool EndsInScheme(const Characters& around, const Scheme& scheme) {
  for (std::size_t i = 0; i < scheme.behind.size(); ++i) {
    if (around[static_cast<std::ptrdiff_t>(i)] != scheme.behind[i]) {
      return false;
    }
  }
  for (std::size_t i = 1; i <= scheme.name.size(); ++i) {
    const char c = around[-static_cast<std::ptrdiff_t>(i)];
    if (Lower(static_cast<unsigned char>(c)) != static_cast<char16_t>(scheme.name[scheme.name.size() - i])) {
      return false;
    }
  }
  return true;
}

// The scheme that ends in this colon, and how its characters stand in the bytes. A zero byte on either side of all of
// them says nothing of their order; units of two bytes mostly lie at even places.
std::optional<LinkStart> StartAtColon(std::string_view bytes, std::size_t colon) {
  const bool isEven = colon % 2 == 0;
  for (const LinkBytes kind : {LinkBytes::kSingle, isEven ? LinkBytes::kUtf16Le : LinkBytes::kUtf16Be,
                               isEven ? LinkBytes::kUtf16Be : LinkBytes::kUtf16Le}) {
    const Characters around(bytes, colon, kind);
    for (const Scheme& scheme : kSchemes) {
      if (EndsInScheme(around, scheme)) {
        const std::size_t step = kind == LinkBytes::kSingle ? 1 : 2;
        const std::size_t zeroBefore = kind == LinkBytes::kUtf16Be ? 1 : 0;
        return LinkStart{colon - scheme.name.size() * step - zeroBefore, kind};
      }
    }
  }
  return std::nullopt;
}

ByteOrder OrderOf(LinkBytes kind) {
  return kind == LinkBytes::kUtf16Le ? ByteOrder::kLittleEndian : ByteOrder::kBigEndian;
}

bool StartsWith(std::u16string_view text, std::u16string_view lowerCase) {
  return text.size() >= lowerCase.size() && std::equal(lowerCase.begin(), lowerCase.end(), text.begin(),
                                                       [](char16_t l, char16_t t) { return l == Lower(t); });
}

// Up to the first unit that is no character.
std::u16string_view WholeCharacters(std::u16string_view text) {
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool isPair = IsHighSurrogate(text[at]) && at + 1 < text.size() && IsLowSurrogate(text[at + 1]);
    if (isPair) {
      ++at;
    } else if (IsSurrogate(text[at])) {
      return text.substr(0, at);
    }
  }
  return text;
}

// A pair of brackets within an address belongs to it; one behind it does not.
std::size_t EndOfPlainLink(std::u16string_view text) {
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (kEnds.find(text[at]) != std::u16string_view::npos || kClosing.find(text[at]) != std::u16string_view::npos) {
      return at;
    }
    const std::size_t bracket = kOpening.find(text[at]);
    if (bracket != std::u16string_view::npos) {
      const std::size_t closing = text.find(kClosing[bracket], at);
      const bool isWithin = closing != std::u16string_view::npos && closing + 1 < text.size() &&
                            kEnds.find(text[closing + 1]) == std::u16string_view::npos;
      if (!isWithin) {
        return at;
      }
      at = closing;
    }
  }
  return text.size();
}

std::u16string_view WithoutTrailingPunctuation(std::u16string_view link) {
  for (;;) {
    const bool isUnbalanced = link.ends_with(u')') && link.find(u'(') == std::u16string_view::npos;
    if (link.empty() || (!isUnbalanced && kTrailing.find(link.back()) == std::u16string_view::npos)) {
      return link;
    }
    link.remove_suffix(1);
  }
}

// The part of the text that is the address as it stands; empty when it is none.
std::u16string_view LinkAtBeginning(std::u16string_view text) {
  if (StartsWith(text, kEd2k)) {
    const std::size_t end = text.find(kEndOfEd2k, kEd2k.size());
    return end == std::u16string_view::npos ? std::u16string_view() : text.substr(0, end + kEndOfEd2k.size());
  }
  const std::u16string_view link = WithoutTrailingPunctuation(text.substr(0, EndOfPlainLink(text)));
  const std::size_t slashes = link.find(u"://");
  const bool isEmpty =
      slashes != std::u16string_view::npos && link.find_first_not_of(u'/', slashes + 3) == std::u16string_view::npos;
  const bool isWhole = StartsWith(text, u"magnet:?") ? link.find(u"xt=") != std::u16string_view::npos
                                                     : slashes != std::u16string_view::npos && !isEmpty;
  return isWhole ? link : std::u16string_view();
}

std::string AsciiPart(std::u16string_view link) {
  std::string ascii;
  for (const char16_t c : link) {
    if (c >= 0x80) {
      break;
    }
    ascii += static_cast<char>(c);
  }
  return ascii;
}

}  // namespace

std::optional<LinkStart> FindLinkStart(std::string_view bytes, std::size_t from) {
  for (std::size_t colon = bytes.find(':', from); colon != std::string_view::npos; colon = bytes.find(':', colon + 1)) {
    const std::optional<LinkStart> start = StartAtColon(bytes, colon);
    if (start && start->at >= from) {
      return start;
    }
  }
  return std::nullopt;
}

std::size_t ExtentOfLink(std::string_view bytes, LinkBytes kind) {
  const std::size_t step = kind == LinkBytes::kSingle ? 1 : 2;
  const std::size_t high = kind == LinkBytes::kUtf16Le ? 1 : 0;
  std::size_t at = 0;
  bool isEd2k = false;
  for (; at + step <= bytes.size(); at += step) {
    const char c = kind == LinkBytes::kSingle ? bytes[at] : bytes[at + 1 - high];
    if (kind != LinkBytes::kSingle && bytes[at + high] != '\0') {
      continue;
    }
    isEd2k |= c == '|';  // blanks stand between its bars
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x20 || byte == 0x7F || (byte == ' ' && !isEd2k) || c == '"' || c == '<' || c == '>') {
      break;
    }
  }
  return at;
}

std::optional<FoundLink> ReadLink(std::string_view bytes, LinkBytes kind) {
  std::u16string text;
  Encoding encoding = Encoding::kUtf8;
  if (kind == LinkBytes::kSingle) {
    const Utf8Extent extent = MeasureUtf8(bytes);
    encoding = extent.bytes == bytes.size() || extent.longCharacters > 0 ? Encoding::kUtf8 : Encoding::kGbk;
    text = Decode(encoding, bytes);
  } else {
    text = DecodeUtf16(OrderOf(kind), bytes);
  }
  const std::u16string_view link = LinkAtBeginning(WholeCharacters(text));
  if (link.empty()) {
    return std::nullopt;
  }
  const std::size_t used = kind == LinkBytes::kSingle ? Encode(encoding, link).size() : 2 * link.size();
  std::optional<std::u16string> unwrapped = UnwrapLink(AsciiPart(link));
  return FoundLink{unwrapped ? std::move(*unwrapped) : std::u16string(link), used};
}

}  // namespace scrivanta
