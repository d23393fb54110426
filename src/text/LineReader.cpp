#include "text/LineReader.h"

#include <cstring>
#include <utility>

namespace scrivanta {

namespace {

constexpr std::size_t kBlockSize = 64 * 1024;  // progress is told block by block

}  // namespace

LineReader::LineReader(ByteSource& source, LineEnds lineEnds, Progress& progress)
    : source_(source), lineEnds_(lineEnds), progress_(progress), buffer_(kBlockSize) {}

bool LineReader::Next() {
  std::size_t searched = 0;  // of the unread bytes, known to hold no line end
  for (;;) {
    const char* data = buffer_.data() + begin_;
    const std::size_t unread = end_ - begin_;
    while (searched < unread) {
      const void* found = std::memchr(data + searched, '\n', unread - searched);
      if (found == nullptr) {
        searched = unread;
        break;
      }
      const auto lineFeed = static_cast<std::size_t>(static_cast<const char*>(found) - data);
      const bool afterReturn = lineFeed > 0 && data[lineFeed - 1] == '\r';
      if (afterReturn || lineEnds_ == LineEnds::kCrLfOrLf) {
        line_ = {data, afterReturn ? lineFeed - 1 : lineFeed};
        lineEnd_ = afterReturn ? std::string_view("\r\n") : std::string_view("\n");
        begin_ += lineFeed + 1;
        ++number_;
        return true;
      }
      searched = lineFeed + 1;
    }
    if (!Refill()) {
      break;
    }
  }
  if (begin_ == end_) {
    return false;
  }
  line_ = {buffer_.data() + begin_, end_ - begin_};
  lineEnd_ = {};
  begin_ = end_;
  ++number_;
  return true;
}

// Keeps the unread bytes at the front and reads more behind them; false at the end.
bool LineReader::Refill() {
  if (atEnd_) {
    return false;
  }
  if (begin_ > 0) {
    std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
    end_ -= std::exchange(begin_, 0);
  }
  if (end_ == buffer_.size()) {
    buffer_.resize(buffer_.size() * 2);
  }
  const std::size_t count = source_.Read(std::span(buffer_).subspan(end_));
  atEnd_ = count == 0;
  end_ += count;
  bytesRead_ += count;
  progress_.Report(bytesRead_, source_.Size().value_or(0));
  return !atEnd_;
}

}  // namespace scrivanta
