#include "rtf/StandardRtf.h"

#include <algorithm>
#include <cstdint>

#include "rtf/RtfGroup.h"
#include "rtf/RtfIndents.h"
#include "rtf/RtfRows.h"
#include "text/CodePage.h"
#include "text/Surrogates.h"
#include "text/Utf8.h"

namespace scrivanta {

namespace {

constexpr std::string_view kUtf8Header = "{\\urtf";
constexpr std::string_view kHeader = "{\\rtf1\\ansi\\ansicpg936\\uc1";
constexpr std::string_view kFontTable = "{\\fonttbl";
constexpr std::string_view kGeneratorWithOwnIndents = "{\\*\\generator Wine ";
constexpr std::string_view kRow = "\\trowd";
constexpr std::string_view kReplacementBytes = "\xEF\xBF\xBD";
constexpr char16_t kReplacement = u'\uFFFD';

bool IsAscii(char byte) {
  return static_cast<unsigned char>(byte) < 0x80;
}

bool MayStandForHalfAPair(char16_t unit) {
  return IsSurrogate(unit) || unit == kReplacement;
}

void AppendUnicode(char16_t unit, std::string& rtf) {
  rtf += "\\u" + std::to_string(static_cast<std::int16_t>(unit)) + "?";
}

// In the font table: many readers know names by the bytes of the code page only.
void AppendName(std::u16string_view name, std::string& rtf) {
  if (ExceedsCodePage936(name)) {
    std::ranges::for_each(name, [&rtf](char16_t unit) { AppendUnicode(unit, rtf); });
    return;
  }
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string bytes;
  EncodeGbkAppend(name, bytes);
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    rtf.append("\\'").append({kDigits[value >> 4U], kDigits[value & 0xFU]});
  }
}

// Copies ASCII; of the rest each stretch goes to the function as text.
template <typename Append>
void CopyAscii(std::string_view utf8, std::string& rtf, Append append) {
  std::u16string text;
  while (!utf8.empty()) {
    const auto stop = std::ranges::find_if_not(utf8, &IsAscii);
    rtf.append(utf8.begin(), stop);
    utf8.remove_prefix(static_cast<std::size_t>(stop - utf8.begin()));
    const std::string_view stretch(utf8.begin(), std::ranges::find_if(utf8, &IsAscii));
    text.clear();
    DecodeUtf8Append(stretch, text);
    append(text);
    utf8.remove_prefix(stretch.size());
  }
}

}  // namespace

std::string StandardRtf(std::string_view rtf, const std::function<std::u16string()>& text) {
  if (!rtf.starts_with(kUtf8Header)) {
    return std::string(rtf);
  }
  // The units of the text that stand for themselves or for what has become U+FFFD, in their order.
  std::u16string doubtful;
  if (rtf.find(kReplacementBytes) != std::string_view::npos) {
    doubtful = text();
    std::erase_if(doubtful, [](char16_t unit) { return !MayStandForHalfAPair(unit); });
  }
  rtf.remove_prefix(kUtf8Header.size());
  rtf.remove_prefix(std::min(rtf.find_first_not_of("0123456789"), rtf.size()));
  std::string standard(kHeader);
  standard.reserve(rtf.size() * 3);
  if (const std::size_t fonts = rtf.find(kFontTable); fonts != std::string_view::npos) {
    standard.append(rtf.substr(0, fonts));
    rtf.remove_prefix(fonts);
    const std::size_t end = EndOfGroup(rtf).value_or(rtf.size());
    CopyAscii(rtf.substr(0, end), standard, [&](std::u16string_view name) { AppendName(name, standard); });
    rtf.remove_prefix(end);
  }
  std::size_t doubt = 0;
  CopyAscii(rtf, standard, [&](std::u16string_view stretch) {
    for (const char16_t unit : stretch) {
      const bool isDoubtful = MayStandForHalfAPair(unit) && doubt < doubtful.size();
      AppendUnicode(isDoubtful ? doubtful[doubt++] : unit, standard);
    }
  });
  if (standard.find(kGeneratorWithOwnIndents) != std::string::npos) {
    standard = WithIndentsOfLines(standard);
  }
  return standard.find(kRow) == std::string::npos ? standard : WithRowsInTables(standard, text());
}

}  // namespace scrivanta
