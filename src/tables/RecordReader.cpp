#include "tables/RecordReader.h"

namespace scrivanta {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kMostBytes = 16 * 1024 * 1024;  // of a record of several lines: an open quote would take them all

}  // namespace

RecordReader::RecordReader(ByteSource& source, const RecordFormat& format, Progress& progress)
    : lines_(source, LineEnds::kCrLfOrLf, progress),
      splitter_(MakeFieldSplitter(format, progress)),
      encoding_(format.encoding) {}

bool RecordReader::Next() {
  if (!lines_.Next()) {
    return false;
  }
  raw_ = lines_.line();
  if (number_ == 0 && encoding_ == Encoding::kUtf8 && raw_.starts_with(kByteOrderMark)) {
    raw_.remove_prefix(kByteOrderMark.size());
  }
  if (splitter_->IsEnd(raw_)) {
    return false;
  }
  ++number_;
  line_ = lines_.number();
  fields_.clear();
  if (splitter_->Start(raw_, line_, fields_)) {
    return true;
  }
  gathered_ = raw_;
  for (;;) {
    const std::string_view lineEnd = lines_.lineEnd();
    if (!lines_.Next()) {
      throw RecordError(line_, splitter_->openColumn(), "the quote is not closed", u"引号没有结束");
    }
    gathered_.append(lineEnd).append(lines_.line());
    if (gathered_.size() > kMostBytes) {
      throw RecordError(line_, splitter_->openColumn(), "the record is longer than 16 MiB; its quote may not be closed",
                        u"这条记录超过16 MB，可能是引号没有结束");
    }
    if (splitter_->GoOn(lineEnd, lines_.line(), fields_)) {
      raw_ = gathered_;
      return true;
    }
  }
}

}  // namespace scrivanta
