#include "tables/ColumnNames.h"

#include <algorithm>
#include <optional>

#include "text/DecimalText.h"
#include "text/LineText.h"
#include "text/Utf8.h"

namespace scrivanta {

namespace {

constexpr std::size_t kMostColumns = 1'000'000;

// The number, from 1, in digits or in letters.
std::optional<std::size_t> NumberOf(std::u16string_view name) {
  std::size_t digits = 0;
  std::size_t letters = 0;
  for (const char16_t c : name) {
    if (c >= u'0' && c <= u'9') {
      digits = digits * 10 + (c - u'0');
      letters = kMostColumns + 1;
    } else if ((c | 0x20) >= u'a' && (c | 0x20) <= u'z') {
      letters = letters * 26 + (c | 0x20U) - u'a' + 1;
      digits = kMostColumns + 1;
    } else {
      return std::nullopt;
    }
    if (digits > kMostColumns && letters > kMostColumns) {
      return std::nullopt;
    }
  }
  const std::size_t number = std::min(digits, letters);
  return number == 0 || number > kMostColumns ? std::nullopt : std::optional(number);
}

ColumnError NoSuchColumn(std::u16string_view name, std::size_t count) {
  std::string english = "there is no column \"";
  EncodeUtf8Append(name, english);
  std::u16string chinese = u"没有“" + std::u16string(name) + u"”这一列";
  if (count != 0) {
    chinese += u"，表格共" + DecimalText(count) + u"列";
  }
  return {english + "\"", chinese + u"。列可用序号（1起）、字母（A、B……）或列名指定，多列用逗号隔开。"};
}

std::optional<std::size_t> FindHeader(std::u16string_view name, std::span<const std::u16string> headers) {
  const auto found = std::find(headers.begin(), headers.end(), name);
  return found == headers.end() ? std::nullopt : std::optional(static_cast<std::size_t>(found - headers.begin()));
}

std::size_t FindColumn(std::u16string_view name, std::span<const std::u16string> headers, std::size_t count) {
  if (const auto header = FindHeader(name, headers)) {
    return *header;
  }
  const auto number = NumberOf(name);
  if (!number || (count != 0 && *number > count)) {
    throw NoSuchColumn(name, count);
  }
  return *number - 1;
}

}  // namespace

std::vector<std::size_t> FindColumns(std::u16string_view names, std::span<const std::u16string> headers,
                                     std::size_t count) {
  if (const auto header = FindHeader(names, headers)) {
    return {*header};
  }
  std::vector<std::size_t> columns;
  for (bool isLast = false; !isLast;) {
    const std::size_t comma = names.find(u',');
    isLast = comma == std::u16string_view::npos;
    columns.push_back(FindColumn(TrimSpaces(names.substr(0, comma)), headers, count));
    names.remove_prefix(isLast ? names.size() : comma + 1);
  }
  return columns;
}

std::vector<std::u16string> HeadersOf(const RecordReader& record, Encoding encoding) {
  std::vector<std::u16string> headers;
  for (const std::string_view field : record.fields()) {
    headers.push_back(Decode(encoding, field));
  }
  return headers;
}

}  // namespace scrivanta
