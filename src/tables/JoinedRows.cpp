#include "tables/JoinedRows.h"

#include <algorithm>

#include "tables/ColumnNames.h"

namespace scrivanta {

namespace {

constexpr std::uint64_t kRowsBetweenReports = 4096;

std::vector<std::size_t> AllColumnsBut(std::size_t count, const std::vector<std::size_t>& left) {
  std::vector<std::size_t> columns;
  for (std::size_t i = 0; i < count; ++i) {
    if (std::find(left.begin(), left.end(), i) == left.end()) {
      columns.push_back(i);
    }
  }
  return columns;
}

}  // namespace

void JoinedRows::ChooseColumns(const RecordReader& first, std::size_t firstColumns, const RecordReader& second,
                               std::size_t secondColumns) {
  std::vector<std::u16string> firstHeaders;
  std::vector<std::u16string> secondHeaders;
  if (options_.hasHeader) {
    firstHeaders = HeadersOf(first, options_.format.encoding);
    secondHeaders = HeadersOf(second, options_.secondFormat.encoding);
  }
  const auto key = FindColumns(options_.key, firstHeaders, firstColumns);
  const auto secondKey =
      FindColumns(options_.secondKey.empty() ? options_.key : options_.secondKey, secondHeaders, secondColumns);
  if (key.size() != secondKey.size()) {
    throw ColumnError("the keys of the two tables have different numbers of columns", u"两个表的关联列数目不同");
  }
  // The key has a column even where the table has no record.
  firstColumns_ = std::max(firstColumns, *std::max_element(key.begin(), key.end()) + 1);
  firstChosen_ = options_.columns.empty() ? AllColumnsBut(firstColumns_, {})
                                          : FindColumns(options_.columns, firstHeaders, firstColumns_);
  secondChosen_ = options_.secondColumns.empty() ? AllColumnsBut(secondColumns, secondKey)
                                                 : FindColumns(options_.secondColumns, secondHeaders, secondColumns);
  firstKey_.emplace(key, options_.comparison, options_.format.encoding);
  secondKey_.emplace(secondKey, options_.comparison, options_.secondFormat.encoding);
  for (std::size_t i = 0; i < secondChosen_.size(); ++i) {
    emptyTail_ += encoder_.delimiter();
  }
}

void JoinedRows::WriteHeader(const RecordReader& first, const RecordReader& second) {
  std::string tail;
  AppendTail(second, tail);
  FillFront([&first](std::size_t column) { return first.Field(column); }, first.line());
  outputs_.joined.WriteLine(front_ + tail);
  if (first.number() > 0 && outputs_.unmatchedFirst != nullptr) {
    outputs_.unmatchedFirst->WriteLine(first.raw());
  }
  if (second.number() > 0 && outputs_.unmatchedSecond != nullptr) {
    outputs_.unmatchedSecond->WriteLine(second.raw());
  }
}

void JoinedRows::AppendTail(const RecordReader& second, std::string& tail) const {
  for (const std::size_t column : secondChosen_) {
    tail.append(encoder_.delimiter());
    if (!encoder_.Append(second.Field(column), tail)) {
      throw RecordError(second.line(), column + 1, "a field of the second table holds a delimiter or a line break",
                        u"第二个表的字段中有分隔符或换行");
    }
  }
}

void JoinedRows::TakeFirst(const RecordReader& first) {
  const bool standsAsItIs = options_.columns.empty() && first.fields().size() == firstColumns_ &&
                            options_.format.separation == Separation::kTab;
  if (standsAsItIs) {
    front_ = first.raw();
  } else {
    FillFront([&first](std::size_t column) { return first.Field(column); }, first.line());
  }
}

void JoinedRows::WriteWith(std::string_view tail) {
  outputs_.joined.WriteRaw(front_);
  outputs_.joined.WriteLine(tail);
  if (++counts_.joined % kRowsBetweenReports == 0) {
    progress_.Report(counts_.joined, 0);
  }
}

void JoinedRows::WriteUnmatchedFirst(const RecordReader& first) {
  ++counts_.unmatchedFirst;
  if (outputs_.unmatchedFirst != nullptr) {
    outputs_.unmatchedFirst->WriteLine(first.raw());
  }
  if (options_.kind == JoinKind::kLeft || options_.kind == JoinKind::kFull) {
    TakeFirst(first);
    WriteWith(emptyTail_);
  }
}

void JoinedRows::ListUnmatchedSecond(std::string_view raw) {
  ++counts_.unmatchedSecond;
  if (outputs_.unmatchedSecond != nullptr) {
    outputs_.unmatchedSecond->WriteLine(raw);
  }
}

void JoinedRows::WriteUnmatchedSecond(const Fields& fields, std::string_view tail) {
  FillFrontFromKey(fields);
  WriteWith(tail);
}

// Of a row of the second table only the key stands in the columns of the first.
void JoinedRows::FillFrontFromKey(const Fields& fields) {
  const auto& columns = firstKey_->columns();
  FillFront(
      [&](std::size_t column) {
        const auto at = std::find(columns.begin(), columns.end(), column);
        const std::size_t its =
            at == columns.end() ? fields.size() : secondKey_->columns()[static_cast<std::size_t>(at - columns.begin())];
        return its < fields.size() ? fields[its] : std::string_view();
      },
      0);
}

template <typename FieldOf>
void JoinedRows::FillFront(const FieldOf& fieldOf, std::uint64_t line) {
  front_.clear();
  for (std::size_t i = 0; i < firstChosen_.size(); ++i) {
    if (i > 0) {
      front_ += encoder_.delimiter();
    }
    if (!encoder_.Append(fieldOf(firstChosen_[i]), front_)) {
      throw RecordError(line, firstChosen_[i] + 1, "the field holds a delimiter or a line break",
                        u"字段中有分隔符或换行");
    }
  }
}

}  // namespace scrivanta
