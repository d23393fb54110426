#include "tables/LineEndCompleter.h"

#include <algorithm>
#include <utility>

namespace scrivanta {

void LineEndCompleter::Write(std::string_view bytes) {
  if (bytes.empty()) {
    return;
  }
  if (std::exchange(afterReturn_, false) && bytes.front() == '\n') {
    bytes.remove_prefix(1);
  }
  std::size_t begin = 0;  // of what is not written yet; whole lines that end in CR LF are left standing in it
  std::size_t at = 0;
  while (at < bytes.size()) {
    const std::size_t lineFeed = std::min(bytes.find('\n', at), bytes.size());
    const std::size_t end = std::min(bytes.substr(0, lineFeed).find('\r', at), lineFeed);
    if (end == bytes.size()) {
      break;
    }
    const bool isWhole = bytes[end] == '\r' && end + 1 == lineFeed && lineFeed < bytes.size();
    at = isWhole ? end + 2 : end + 1;
    if (!isWhole) {
      EndLine(bytes.substr(begin, end - begin));
      begin = at;
    }
  }
  afterReturn_ = bytes.ends_with('\r');
  isWithinLine_ = !bytes.empty() && at < bytes.size();
  out_.WriteRaw(bytes.substr(begin));
}

void LineEndCompleter::Finish() {
  if (std::exchange(isWithinLine_, false)) {
    EndLine({});
  }
  afterReturn_ = false;
}

void LineEndCompleter::EndLine(std::string_view line) {
  out_.WriteLine(line);
}

}  // namespace scrivanta
