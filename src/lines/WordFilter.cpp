#include "lines/WordFilter.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kHaveHeader = u"以下行 含有 关键字：";
constexpr std::u16string_view kHaveNotHeader = u"以下行 不含有 关键字：";

// Finds a keyword in the bytes of lines. In the code page a byte of ASCII can be the second byte of a character, and
// the end of one character with the beginning of the next can look like a third. So bytes that match are only a
// candidate there, unless nothing but ASCII stands before them.
class KeywordFinder {
 public:
  explicit KeywordFinder(const WordFilterOptions& options)
      : keyword_(options.keyword), bytes_(Encode(options.encoding, keyword_)), encoding_(options.encoding) {}

  bool IsIn(std::string_view line) {
    const std::size_t found = line.find(bytes_);
    if (found == std::string_view::npos) {
      return false;
    }
    if (encoding_ == Encoding::kUtf8 || IsAscii(line.substr(0, found + bytes_.size()))) {
      return true;
    }
    text_.clear();
    DecodeAppend(encoding_, line, text_);
    return text_.find(keyword_) != std::u16string::npos;
  }

 private:
  static bool IsAscii(std::string_view bytes) {
    unsigned char all = 0;
    for (const char byte : bytes) {
      all |= static_cast<unsigned char>(byte);
    }
    return all < 0x80;
  }

  const std::u16string& keyword_;
  std::string bytes_;
  Encoding encoding_;
  std::u16string text_;  // of one line, kept for its memory
};

void WriteHeader(LineWriter& out, std::u16string_view header, const WordFilterOptions& options) {
  out.WriteRaw(Encode(options.encoding, header));
  out.WriteLine(Encode(options.encoding, options.keyword));
}

}  // namespace

void WriteHaveHeader(LineWriter& have, const WordFilterOptions& options) {
  WriteHeader(have, kHaveHeader, options);
}

void WriteHaveNotHeader(LineWriter& haveNot, const WordFilterOptions& options) {
  // In the code page a Chinese character is two bytes, and on the screen it is as wide as two of ASCII.
  const std::size_t width = Encode(Encoding::kGbk, std::u16string(kHaveNotHeader) + options.keyword).size();
  haveNot.WriteLine({});
  haveNot.WriteLine(std::string(width, '='));
  WriteHeader(haveNot, kHaveNotHeader, options);
}

void WordFilter(LineReader& in, LineWriter& have, LineWriter& haveNot, const WordFilterOptions& options) {
  WriteHaveHeader(have, options);
  WriteHaveNotHeader(haveNot, options);
  KeywordFinder keyword(options);
  while (in.Next()) {
    (keyword.IsIn(in.line()) ? have : haveNot).WriteLine(in.line());
  }
}

}  // namespace scrivanta
