// How the rows of two tables are put together: the chosen columns of the first, then those of the second.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tables/KeyText.h"
#include "tables/RecordReader.h"
#include "tables/RecordWriter.h"
#include "tables/TableJoin.h"

namespace scrivanta {

class JoinedRows {
 public:
  JoinedRows(const JoinOptions& options, const JoinOutputs& outputs, Progress& progress)
      : options_(options), outputs_(outputs), progress_(progress), encoder_(options.format) {}

  // With the readers at the first records of their tables, or behind tables that have none. Throws ColumnError.
  void ChooseColumns(const RecordReader& first, std::size_t firstColumns, const RecordReader& second,
                     std::size_t secondColumns);
  // Of the joined table and of the lists. A table that is empty has no header for its list.
  void WriteHeader(const RecordReader& first, const RecordReader& second);

  // Valid as KeyText says.
  std::string_view KeyOfFirst(const RecordReader& first) { return firstKey_->Of(first); }
  std::string_view KeyOfSecond(const RecordReader& second) { return secondKey_->Of(second); }

  // What a row of the second table gives to a joined one: its chosen fields, each behind a delimiter. Throws
  // RecordError, which says that it is of the second table.
  void AppendTail(const RecordReader& second, std::string& tail) const;

  // Takes the row for the joined ones that WriteWith is to write.
  void TakeFirst(const RecordReader& first);
  void WriteWith(std::string_view tail);
  // Rows without a partner: into their list, and among the joined ones where the kind of the join keeps them.
  void WriteUnmatchedFirst(const RecordReader& first);
  void ListUnmatchedSecond(std::string_view raw);
  bool KeepsUnmatchedSecond() const { return options_.kind == JoinKind::kRight || options_.kind == JoinKind::kFull; }
  bool ListsUnmatchedSecond() const { return outputs_.unmatchedSecond != nullptr; }
  void WriteUnmatchedSecond(const Fields& fields, std::string_view tail);

  const JoinCounts& counts() const noexcept { return counts_; }

 private:
  void FillFrontFromKey(const Fields& fields);
  template <typename FieldOf>
  void FillFront(const FieldOf& fieldOf, std::uint64_t line);

  const JoinOptions& options_;
  JoinOutputs outputs_;
  Progress& progress_;
  FieldEncoder encoder_;
  std::size_t firstColumns_ = 0;
  std::optional<KeyText> firstKey_;
  std::optional<KeyText> secondKey_;
  std::vector<std::size_t> firstChosen_;
  std::vector<std::size_t> secondChosen_;
  std::string front_;  // what of the joined row is the first table's
  std::string emptyTail_;
  JoinCounts counts_;
};

}  // namespace scrivanta
