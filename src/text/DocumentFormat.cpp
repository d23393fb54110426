#include "text/DocumentFormat.h"

#include <algorithm>
#include <cstddef>

#include "text/CodePage.h"
#include "text/Encoding.h"
#include "text/EncodingProbe.h"
#include "text/Utf16.h"

namespace scrivanta {

namespace {

bool IsUtf16(DocumentEncoding encoding) {
  return encoding == DocumentEncoding::kUtf16Le || encoding == DocumentEncoding::kUtf16Be;
}

bool IsUtf8(DocumentEncoding encoding) {
  return encoding == DocumentEncoding::kUtf8 || encoding == DocumentEncoding::kUtf8WithMark;
}

DocumentEncoding Recognise(std::string_view bytes) {
  EncodingProbe probe;
  probe.Take(bytes);
  return probe.Encoding();
}

ByteOrder ByteOrderOf(DocumentEncoding encoding) {
  return encoding == DocumentEncoding::kUtf16Le ? ByteOrder::kLittleEndian : ByteOrder::kBigEndian;
}

std::u16string DecodeBytes(DocumentEncoding encoding, std::string_view bytes) {
  if (IsUtf16(encoding)) {
    return DecodeUtf16(ByteOrderOf(encoding), bytes);
  }
  return Decode(encoding == DocumentEncoding::kGbk ? Encoding::kGbk : Encoding::kUtf8, bytes);
}

void EncodeTextAppend(DocumentEncoding encoding, std::u16string_view text, std::string& bytes) {
  if (IsUtf16(encoding)) {
    EncodeUtf16Append(ByteOrderOf(encoding), text, bytes);
  } else {
    EncodeAppend(encoding == DocumentEncoding::kGbk ? Encoding::kGbk : Encoding::kUtf8, text, bytes);
  }
}

bool LooksBinary(std::u16string_view text) {
  // Beside NULs, a tenth of control characters and undecodable bytes; a few of them alone prove nothing.
  constexpr std::size_t kFew = 8;
  std::size_t suspicious = 0;
  bool hasNul = false;
  for (const char16_t unit : text) {
    const bool isControl = unit < 0x20 && (unit < u'\t' || unit > u'\r') && unit != 0x1A && unit != 0x1B;
    const bool isUndecoded = unit >= 0xDC80 && unit <= 0xDCFF;
    suspicious += isControl || isUndecoded ? 1 : 0;
    hasNul |= unit == 0;
  }
  return hasNul || (suspicious > kFew && suspicious > text.size() / 10);
}

struct LineEndCounts {
  std::size_t crLf = 0;
  std::size_t lf = 0;
  std::size_t cr = 0;
};

LineEndCounts CountLineEnds(std::u16string_view text) {
  LineEndCounts counts;
  char16_t before = 0;
  for (const char16_t unit : text) {
    if (unit == u'\n') {
      ++(before == u'\r' ? counts.crLf : counts.lf);
    }
    counts.cr += unit == u'\r' ? 1 : 0;
    before = unit;
  }
  counts.cr -= counts.crLf;
  return counts;
}

DocumentLineEnds LineEndsOf(const LineEndCounts& counts) {
  if ((counts.crLf > 0) + (counts.lf > 0) + (counts.cr > 0) > 1) {
    return DocumentLineEnds::kMixed;
  }
  return counts.lf > 0 ? DocumentLineEnds::kLf : counts.cr > 0 ? DocumentLineEnds::kCr : DocumentLineEnds::kCrLf;
}

// Turns lone CR and LF into CR LF, in place: the text grows, so it is moved from its end.
void CompleteLineEnds(std::u16string& text, std::size_t loneEnds) {
  std::size_t from = text.size();
  text.resize(text.size() + loneEnds);
  std::size_t to = text.size();
  while (to != from) {  // until then, ends are missing before
    const char16_t unit = text[--from];
    const bool isWhole = unit == u'\n' && from > 0 && text[from - 1] == u'\r';
    if (isWhole) {
      --from;
    }
    if (unit == u'\r' || unit == u'\n') {
      text[--to] = u'\n';
      text[--to] = u'\r';
    } else {
      text[--to] = unit;
    }
  }
}

// The text with another line end in the place of CR LF.
void EncodeLinesAppend(DocumentEncoding encoding, std::u16string_view text, std::u16string_view lineEnd,
                       std::string& bytes) {
  std::string lineEndBytes;
  EncodeTextAppend(encoding, lineEnd, lineEndBytes);
  for (;;) {
    const std::size_t end = text.find(u"\r\n");
    EncodeTextAppend(encoding, text.substr(0, end), bytes);
    if (end == std::u16string_view::npos) {
      return;
    }
    bytes += lineEndBytes;
    text.remove_prefix(end + 2);
  }
}

DecodedDocument DecodeUnder(DocumentEncoding encoding, std::string_view bytes) {
  DecodedDocument document;
  DocumentFormat& format = document.format;
  format.encoding = encoding;
  if (bytes.starts_with(MarkOf(encoding))) {
    bytes.remove_prefix(MarkOf(encoding).size());
  }
  document.text = DecodeBytes(encoding, bytes);
  format.endsInHalfUnit = IsUtf16(encoding) && bytes.size() % 2 != 0;
  format.isBinary = LooksBinary(document.text);
  format.exceedsCodePage = encoding == DocumentEncoding::kGbk && ExceedsCodePage936(document.text);
  return document;
}

DecodedDocument WithWholeLineEnds(DecodedDocument document) {
  const LineEndCounts counts = CountLineEnds(document.text);
  document.format.lineEnds = LineEndsOf(counts);
  if (!document.format.isBinary) {
    CompleteLineEnds(document.text, counts.lf + counts.cr);
  }
  return document;
}

bool IsAscii(std::string_view bytes) {
  return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

DecodedDocument DecodeAsItStands(std::string_view bytes) {
  return DecodeUnder(Recognise(bytes), bytes);
}

DecodedDocument DecodeDocument(std::string_view bytes) {
  return WithWholeLineEnds(DecodeAsItStands(bytes));
}

DecodedDocument DecodeDocumentAs(DocumentEncoding encoding, std::string_view bytes) {
  const bool isMarked = IsUtf8(encoding) && bytes.starts_with(MarkOf(DocumentEncoding::kUtf8WithMark));
  return WithWholeLineEnds(DecodeUnder(isMarked ? DocumentEncoding::kUtf8WithMark : encoding, bytes));
}

DecodedDocument DecodeForChange(std::string_view bytes) {
  DecodedDocument document = DecodeDocument(bytes);
  if (document.format.lineEnds == DocumentLineEnds::kMixed && !document.format.isBinary) {
    document.text = DecodeAsItStands(bytes).text;
  }
  return document;
}

std::string EncodeDocument(std::u16string_view text, const DocumentFormat& format) {
  std::string bytes(MarkOf(format.encoding));
  std::u16string_view halfUnit;
  if (format.endsInHalfUnit && !text.empty() && text.back() >= 0xDC00 && text.back() <= 0xDCFF) {
    halfUnit = text.substr(text.size() - 1);
    text.remove_suffix(1);
  }
  if (format.isBinary || format.lineEnds == DocumentLineEnds::kCrLf || format.lineEnds == DocumentLineEnds::kMixed) {
    EncodeTextAppend(format.encoding, text, bytes);
  } else {
    EncodeLinesAppend(format.encoding, text, format.lineEnds == DocumentLineEnds::kLf ? u"\n" : u"\r", bytes);
  }
  if (!halfUnit.empty()) {
    bytes += static_cast<char>(halfUnit.front() & 0xFFU);
  }
  if (format.encoding == DocumentEncoding::kUtf8 && !IsAscii(bytes) && !IsUtf8(Recognise(bytes))) {
    bytes.insert(0, MarkOf(DocumentEncoding::kUtf8WithMark));
  }
  return bytes;
}

bool NeedsEncodingQuestion(std::u16string_view text, const DocumentFormat& format) {
  const bool exceeds = format.encoding == DocumentEncoding::kGbk && !format.exceedsCodePage && ExceedsCodePage936(text);
  return exceeds || WouldBeMisread(text, format);
}

bool WouldBeMisread(std::u16string_view text, const DocumentFormat& format) {
  return format.encoding == DocumentEncoding::kGbk && Recognise(EncodeDocument(text, format)) != DocumentEncoding::kGbk;
}

}  // namespace scrivanta
