#include "tables/TextFileCopy.h"

#include <algorithm>

#include "rtf/RtfText.h"
#include "tables/LineEndCompleter.h"
#include "text/Bytes.h"
#include "text/EncodingProbe.h"
#include "text/ExplainedError.h"
#include "text/PathParts.h"
#include "text/PlatformFile.h"
#include "text/Surrogates.h"
#include "text/Utf16.h"

namespace scrivanta {

namespace {

constexpr std::size_t kBlockSize = 256 * 1024;

bool IsUtf16(DocumentEncoding encoding) {
  return encoding == DocumentEncoding::kUtf16Le || encoding == DocumentEncoding::kUtf16Be;
}

Encoding ByteEncodingOf(DocumentEncoding encoding) {
  return encoding == DocumentEncoding::kGbk ? Encoding::kGbk : Encoding::kUtf8;
}

// Decodes pieces and hands them on in the encoding that is wanted.
class Recoder {
 public:
  Recoder(DocumentEncoding from, Encoding to, LineEndCompleter& out) : from_(from), to_(to), out_(out) {}

  void Take(std::string_view bytes) {
    if (!IsUtf16(from_) && ByteEncodingOf(from_) == to_) {
      out_.Write(bytes);
      return;
    }
    waiting_ += bytes;
    TakeWaiting(WholePart());
  }

  void Finish() {
    TakeWaiting(waiting_.size());
    out_.Finish();
  }

 private:
  // How many of the waiting bytes end with a whole character: of bytes, those up to a line end.
  std::size_t WholePart() const {
    if (!IsUtf16(from_)) {
      return waiting_.find_last_of("\r\n") + 1;  // npos + 1 is 0
    }
    std::size_t size = waiting_.size() & ~std::size_t{1};
    if (size >= 2 && IsHighSurrogate(DecodeUtf16(Order(), std::string_view(waiting_).substr(size - 2, 2)).front())) {
      size -= 2;
    }
    return size;
  }

  void TakeWaiting(std::size_t size) {
    const std::string_view part = std::string_view(waiting_).substr(0, size);
    const std::u16string text = IsUtf16(from_) ? DecodeUtf16(Order(), part) : Decode(ByteEncodingOf(from_), part);
    out_.Write(Encode(to_, text));
    waiting_.erase(0, size);
  }

  ByteOrder Order() const {
    return from_ == DocumentEncoding::kUtf16Le ? ByteOrder::kLittleEndian : ByteOrder::kBigEndian;
  }

  DocumentEncoding from_;
  Encoding to_;
  LineEndCompleter& out_;
  std::string waiting_;
};

// Fills the block from the source; its size is then what there was.
void ReadBlock(ByteSource& source, std::string& block) {
  block.resize(kBlockSize);
  std::size_t used = 0;
  while (used < block.size()) {
    const std::size_t count = source.Read(std::span(block).subspan(used));
    if (count == 0) {
      break;
    }
    used += count;
  }
  block.resize(used);
}

DocumentEncoding RecogniseText(const std::filesystem::path& path, std::string& block, Progress& progress) {
  FileSource source(path);
  EncodingProbe probe;
  ReadBlock(source, block);
  probe.Take(block);
  if (!IsUtf16(probe.Encoding()) && block.find('\0') != std::string::npos) {
    throw ExplainedError("the file is binary", u"是二进制文件");
  }
  if (block.size() == kBlockSize) {
    std::string further = block;
    while (further.size() == kBlockSize && !probe.IsDecided()) {
      progress.Report(0, 0);
      ReadBlock(source, further);
      probe.Take(further);
    }
  }
  return probe.Encoding();
}

}  // namespace

void TextFileCopier::Copy(const std::filesystem::path& path, const std::function<void()>& beforeText) {
  const DocumentEncoding encoding = RecogniseText(path, block_, progress_);
  LineEndCompleter completer(out_);
  if (IsRichTextPath(TextOfPath(path)) && block_.starts_with("{\\rtf")) {
    const std::string rtf = ReadWholeFile(path);
    beforeText();
    completer.Write(Encode(encoding_, RtfText(rtf).text()));
    completer.Finish();
    return;
  }
  beforeText();
  Recoder recoder(encoding, encoding_, completer);
  std::string_view first = block_;
  first.remove_prefix(MarkOf(encoding).size());
  recoder.Take(first);
  if (block_.size() == kBlockSize) {
    FileSource source(path);
    ReadBlock(source, block_);  // has been taken
    while (block_.size() == kBlockSize) {
      progress_.Report(0, 0);
      ReadBlock(source, block_);
      recoder.Take(block_);
    }
  }
  recoder.Finish();
}

}  // namespace scrivanta
