#include "system/folders/FileCopies.h"

#include <system_error>

#include "text/AtomicFile.h"
#include "text/Bytes.h"
#include "text/DecimalText.h"
#include "text/Encoding.h"
#include "text/ExplainedError.h"
#include "text/LineReader.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

constexpr std::string_view kTitle = "Scrivanta files as they were: bytes in hexadecimal, path\r\n";
constexpr std::string_view kNone = "-";
constexpr std::string_view kDigits = "0123456789abcdef";

std::string Hexadecimal(std::string_view bytes) {
  constexpr unsigned kBits = 4;
  std::string text;
  text.reserve(2 * bytes.size());
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    text += {kDigits[byte >> kBits], kDigits[byte & 0xFU]};
  }
  return text;
}

std::optional<std::string> FromHexadecimal(std::string_view text) {
  std::string bytes;
  if (text.size() % 2 != 0) {
    return std::nullopt;
  }
  for (std::size_t i = 0; i < text.size(); i += 2) {
    const std::size_t high = kDigits.find(text[i]);
    const std::size_t low = kDigits.find(text[i + 1]);
    if (high == kDigits.npos || low == kDigits.npos) {
      return std::nullopt;
    }
    bytes += static_cast<char>(high * kDigits.size() + low);
  }
  return bytes;
}

}  // namespace

FileCopy CopyOfFile(const std::filesystem::path& path) {
  std::error_code error;
  return {path, std::filesystem::exists(path, error) ? std::optional(ReadWholeFile(path)) : std::nullopt};
}

std::string TextOfCopies(const std::vector<FileCopy>& copies) {
  std::string text(kTitle);
  for (const FileCopy& copy : copies) {
    text += copy.bytes ? Hexadecimal(*copy.bytes) : std::string(kNone);
    text += "\t" + Encode(Encoding::kUtf8, TextOfPath(copy.path)) + "\r\n";
  }
  return text;
}

std::vector<FileCopy> ReadCopies(std::string_view text) {
  const auto fail = [](std::uint64_t line) {
    throw ExplainedError("line " + std::to_string(line) + " is none of a text of files as they were",
                         u"第" + DecimalText(line) + u"行不是恢复快捷方式用的文本。");
  };
  if (!text.starts_with(kTitle)) {
    fail(1);
  }
  std::vector<FileCopy> copies;
  NoProgress progress;
  MemorySource source(text);
  LineReader lines(source, LineEnds::kCrLf, progress);
  lines.Next();
  while (lines.Next()) {
    const std::string_view line = lines.line();
    const std::size_t tab = line.find('\t');
    const std::string_view field = line.substr(0, tab);
    std::optional<std::string> bytes = FromHexadecimal(field);
    if (tab == line.npos || (!bytes && field != kNone)) {
      fail(lines.number());
    }
    copies.push_back({PathOfText(Decode(Encoding::kUtf8, line.substr(tab + 1))), std::move(bytes)});
  }
  return copies;
}

void PutBack(const FileCopy& copy) {
  if (copy.bytes) {
    ReplaceFileContent(copy.path, *copy.bytes);
    return;
  }
  std::error_code error;
  std::filesystem::remove(copy.path, error);
  if (error) {
    throw FileError(copy.path, error);
  }
}

}  // namespace scrivanta
