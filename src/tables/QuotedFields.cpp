#include "tables/QuotedFields.h"

#include <algorithm>

#include "tables/SplitAtByte.h"

namespace scrivanta {

bool QuotedFields::Start(std::string_view line, std::uint64_t, Fields& fields) {
  if (line.find('"') == std::string_view::npos) {
    SplitAtByte(line, delimiter_, fields);
    return true;
  }
  text_.clear();
  ends_.clear();
  inQuotes_ = line.front() == '"';
  return Take(line.substr(inQuotes_ ? 1 : 0), fields);
}

bool QuotedFields::GoOn(std::string_view lineEnd, std::string_view line, Fields& fields) {
  text_.append(lineEnd);
  return Take(line, fields);
}

bool QuotedFields::Take(std::string_view line, Fields& fields) {
  std::size_t at = 0;
  for (;;) {
    if (inQuotes_) {
      at = TakeQuoted(line, at);
      if (inQuotes_) {
        return false;
      }
    }
    const std::size_t end = std::min(line.find(delimiter_, at), line.size());
    text_.append(line, at, end - at);
    ends_.push_back(text_.size());
    if (end == line.size()) {
      break;
    }
    inQuotes_ = end + 1 < line.size() && line[end + 1] == '"';
    at = end + (inQuotes_ ? 2 : 1);
  }
  std::size_t begin = 0;
  for (const std::size_t end : ends_) {
    fields.push_back(std::string_view(text_).substr(begin, end - begin));
    begin = end;
  }
  return true;
}

// Takes what stands up to the closing quote and returns where the line goes on behind it.
std::size_t QuotedFields::TakeQuoted(std::string_view line, std::size_t at) {
  for (;;) {
    const std::size_t quote = line.find('"', at);
    if (quote == std::string_view::npos) {
      text_.append(line, at);
      return line.size();
    }
    text_.append(line, at, quote - at);
    if (quote + 1 == line.size() || line[quote + 1] != '"') {
      inQuotes_ = false;
      return quote + 1;
    }
    text_ += '"';
    at = quote + 2;
  }
}

}  // namespace scrivanta
