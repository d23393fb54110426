#include "tables/TableJoin.h"

#include <algorithm>
#include <optional>

#include "tables/ColumnNames.h"
#include "tables/SecondTable.h"

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

class Join {
 public:
  Join(JoinedTable first, JoinedTable second, const JoinOptions& options, const JoinOutputs& outputs,
       Progress& progress)
      : first_(first.records),
        firstColumns_(first.columns),
        second_(second.records),
        secondColumns_(second.columns),
        options_(options),
        outputs_(outputs),
        progress_(progress),
        encoder_(options.format),
        table_(options.secondFormat, KeepsSecondRows() || outputs.unmatchedSecond != nullptr, encoder_) {}

  JoinCounts Run() {
    const bool hasFirst = first_.Next();
    const bool hasSecond = second_.Next();
    ChooseColumns();
    if (options_.hasHeader) {
      WriteHeader(hasFirst, hasSecond);
    }
    for (bool more = hasSecond && (!options_.hasHeader || second_.Next()); more; more = second_.Next()) {
      table_.Add(second_, *secondKey_, secondChosen_);
    }
    for (bool more = hasFirst && (!options_.hasHeader || first_.Next()); more; more = first_.Next()) {
      JoinRow();
    }
    WriteRestOfSecond();
    return counts_;
  }

 private:
  bool KeepsFirstRows() const { return options_.kind == JoinKind::kLeft || options_.kind == JoinKind::kFull; }
  bool KeepsSecondRows() const { return options_.kind == JoinKind::kRight || options_.kind == JoinKind::kFull; }

  // With the readers at the first records.
  void ChooseColumns() {
    std::vector<std::u16string> firstHeaders;
    std::vector<std::u16string> secondHeaders;
    if (options_.hasHeader) {
      firstHeaders = HeadersOf(first_, options_.format.encoding);
      secondHeaders = HeadersOf(second_, options_.secondFormat.encoding);
    }
    const auto key = FindColumns(options_.key, firstHeaders, firstColumns_);
    const auto secondKey =
        FindColumns(options_.secondKey.empty() ? options_.key : options_.secondKey, secondHeaders, secondColumns_);
    if (key.size() != secondKey.size()) {
      throw ColumnError("the keys of the two tables have different numbers of columns", u"两个表的关联列数目不同");
    }
    // The key has a column even where the table has no record.
    firstColumns_ = std::max(firstColumns_, *std::max_element(key.begin(), key.end()) + 1);
    firstChosen_ = options_.columns.empty() ? AllColumnsBut(firstColumns_, {})
                                            : FindColumns(options_.columns, firstHeaders, firstColumns_);
    secondChosen_ = options_.secondColumns.empty() ? AllColumnsBut(secondColumns_, secondKey)
                                                   : FindColumns(options_.secondColumns, secondHeaders, secondColumns_);
    firstKey_.emplace(key, options_.comparison, options_.format.encoding);
    secondKey_.emplace(secondKey, options_.comparison, options_.secondFormat.encoding);
    for (std::size_t i = 0; i < secondChosen_.size(); ++i) {
      emptyTail_ += encoder_.delimiter();
    }
  }

  void WriteHeader(bool hasFirst, bool hasSecond) {
    std::string tail;
    AppendTail(second_, secondChosen_, encoder_, tail);
    FillFront([this](std::size_t column) { return first_.Field(column); }, first_.line());
    outputs_.joined.WriteLine(front_ + tail);
    if (hasFirst && outputs_.unmatchedFirst != nullptr) {
      outputs_.unmatchedFirst->WriteLine(first_.raw());
    }
    if (hasSecond && outputs_.unmatchedSecond != nullptr) {
      outputs_.unmatchedSecond->WriteLine(second_.raw());
    }
  }

  void JoinRow() {
    RowsByKey& rows = table_.rows();
    const std::uint32_t key = rows.Find(firstKey_->Of(first_));
    if (key == RowsByKey::kNone) {
      ++counts_.unmatchedFirst;
      if (outputs_.unmatchedFirst != nullptr) {
        outputs_.unmatchedFirst->WriteLine(first_.raw());
      }
      if (KeepsFirstRows()) {
        FillFrontFromFirst();
        WriteJoined(emptyTail_);
      }
      return;
    }
    rows.Mark(key);
    FillFrontFromFirst();
    for (std::uint32_t row = rows.FirstRow(key); row != RowsByKey::kNone; row = rows.NextRow(row)) {
      WriteJoined(table_.Tail(row));
    }
  }

  void WriteRestOfSecond() {
    RowsByKey& rows = table_.rows();
    for (std::uint32_t row = 0; row < rows.rowCount(); ++row) {
      if (rows.IsMarked(rows.KeyOfRow(row))) {
        continue;
      }
      ++counts_.unmatchedSecond;
      if (outputs_.unmatchedSecond != nullptr) {
        outputs_.unmatchedSecond->WriteLine(table_.Raw(row));
      }
      if (KeepsSecondRows()) {
        FillFrontFromKey(table_.FieldsOf(row));
        WriteJoined(table_.Tail(row));
      }
    }
  }

  void FillFrontFromFirst() {
    const bool standsAsItIs = options_.columns.empty() && first_.fields().size() == firstColumns_ &&
                              options_.format.separation == Separation::kTab;
    if (standsAsItIs) {
      front_ = first_.raw();
    } else {
      FillFront([this](std::size_t column) { return first_.Field(column); }, first_.line());
    }
  }

  // The fields of a row of the second table: only the key stands in the columns of the first.
  void FillFrontFromKey(const Fields& fields) {
    const auto& columns = firstKey_->columns();
    FillFront(
        [&](std::size_t column) {
          const auto at = std::find(columns.begin(), columns.end(), column);
          const std::size_t its = at == columns.end()
                                      ? fields.size()
                                      : secondKey_->columns()[static_cast<std::size_t>(at - columns.begin())];
          return its < fields.size() ? fields[its] : std::string_view();
        },
        0);
  }

  template <typename FieldOf>
  void FillFront(const FieldOf& fieldOf, std::uint64_t line) {
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

  void WriteJoined(std::string_view tail) {
    outputs_.joined.WriteRaw(front_);
    outputs_.joined.WriteLine(tail);
    if (++counts_.joined % kRowsBetweenReports == 0) {
      progress_.Report(first_.number(), 0);
    }
  }

  RecordReader& first_;
  std::size_t firstColumns_;
  RecordReader& second_;
  std::size_t secondColumns_;
  const JoinOptions& options_;
  JoinOutputs outputs_;
  Progress& progress_;
  FieldEncoder encoder_;
  SecondTable table_;
  std::optional<KeyText> firstKey_;
  std::optional<KeyText> secondKey_;
  std::vector<std::size_t> firstChosen_;
  std::vector<std::size_t> secondChosen_;
  std::string front_;  // what of the joined row is the first table's
  std::string emptyTail_;
  JoinCounts counts_;
};

}  // namespace

JoinCounts JoinTables(JoinedTable first, JoinedTable second, const JoinOptions& options, const JoinOutputs& outputs,
                      Progress& progress) {
  return Join(first, second, options, outputs, progress).Run();
}

}  // namespace scrivanta
