// A document between the bytes of its file and the text that is edited. What comes in goes out again: a text that was
// not changed becomes the same bytes.
#pragma once

#include <string>
#include <string_view>

namespace scrivanta {

enum class DocumentEncoding {
  kGbk,  // as Encoding::kGbk
  kUtf8,
  kUtf8WithMark,  // the other three begin with a byte-order mark, which is no part of the text
  kUtf16Le,
  kUtf16Be,
};

enum class DocumentLineEnds {
  kCrLf,
  kLf,
  kCr,
  kMixed,  // saved as CR LF, for the text does not tell any more what they were
};

// How a document stands in its file. A new one is as the default says.
struct DocumentFormat {
  DocumentEncoding encoding = DocumentEncoding::kGbk;
  DocumentLineEnds lineEnds = DocumentLineEnds::kCrLf;
  // No text in any of the encodings: it holds NULs, or much that is no character. Its line ends are left as they are.
  bool isBinary = false;
  // GBK, and it came with characters that code page 936 alone lacks: saving it so again is no news to anybody.
  bool exceedsCodePage = false;
  // UTF-16 of an odd number of bytes. The last byte is the last unit of the text, as U+DC00 + byte.
  bool endsInHalfUnit = false;

  bool operator==(const DocumentFormat&) const = default;
};

struct DecodedDocument {
  std::u16string text;  // lines end with CR LF
  DocumentFormat format;
};

// GBK unless the bytes prove otherwise: by a byte-order mark, or by being UTF-8 with a character of three bytes or
// more.
DecodedDocument DecodeDocument(std::string_view bytes);

// The same in an encoding that is given. It need not be the one the bytes prove, and a mark they begin with counts.
DecodedDocument DecodeDocumentAs(DocumentEncoding encoding, std::string_view bytes);

// As DecodeDocument with the line ends as they stand, here and when it is encoded: for a file of which only a part is
// changed.
DecodedDocument DecodeAsItStands(std::string_view bytes);

// As a document, but one of mixed line ends, which would all become CR LF, as it stands: for changes in a file that
// leave the rest of it alone.
DecodedDocument DecodeForChange(std::string_view bytes);

// UTF-8 without a mark gets one where it would not be recognised again.
std::string EncodeDocument(std::u16string_view text, const DocumentFormat& format);

// Whether saving has to be asked about: as GBK, the text has got characters that code page 936 alone lacks, or would be
// read back as another encoding.
bool NeedsEncodingQuestion(std::u16string_view text, const DocumentFormat& format);

// Whether the bytes of a text that is saved as GBK prove another encoding to whoever opens them.
bool WouldBeMisread(std::u16string_view text, const DocumentFormat& format);

}  // namespace scrivanta
