#include "lines/TextStatistics.h"

#include <string>

namespace scrivanta {

namespace {

// Passes bytes on and remembers the last two: only they tell whether the last line has a line end.
class EndWatcher final : public ByteSource {
 public:
  explicit EndWatcher(ByteSource& source) : source_(source) {}

  std::size_t Read(std::span<char> buffer) override {
    const std::size_t count = source_.Read(buffer);
    end_.append(buffer.data() + (count > 2 ? count - 2 : 0), count > 2 ? 2 : count);
    end_.erase(0, end_.size() > 2 ? end_.size() - 2 : 0);
    return count;
  }
  std::optional<std::uint64_t> Size() const override { return source_.Size(); }

  bool EndsWithLineEnd(LineEnds lineEnds) const {
    return lineEnds == LineEnds::kCrLf ? end_ == "\r\n" : end_.ends_with('\n');
  }

 private:
  ByteSource& source_;
  std::string end_;
};

}  // namespace

TextStatistics CountText(ByteSource& source, LineEnds lineEnds, Encoding encoding, Progress& progress) {
  EndWatcher watcher(source);
  LineReader reader(watcher, lineEnds, progress);
  TextStatistics statistics;
  std::u16string text;
  while (reader.Next()) {
    text.clear();
    DecodeAppend(encoding, reader.line(), text);
    statistics.characters += text.size() + 2;
  }
  statistics.hardLines = reader.number();
  if (statistics.hardLines > 0 && !watcher.EndsWithLineEnd(lineEnds)) {
    statistics.characters -= 2;
  }
  return statistics;
}

}  // namespace scrivanta
