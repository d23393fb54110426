#include "tables/TableJoin.h"

#include <algorithm>
#include <optional>

#include "tables/JoinedRows.h"
#include "tables/PartnersByKey.h"
#include "tables/SecondTable.h"

namespace scrivanta {

namespace {

struct TableSize {
  std::size_t columns = 0;
  std::uint64_t bytes = 0;
};

TableSize SizeOf(const OpenTable& open) {
  RecordReader records = open();
  TableSize size;
  while (records.Next()) {
    size.columns = std::max(size.columns, records.fields().size());
    size.bytes += records.raw().size();
  }
  return size;
}

// Opens a table in front of its first row.
RecordReader OpenRows(const OpenTable& open, const JoinOptions& options) {
  RecordReader records = open();
  if (options.hasHeader) {
    records.Next();
  }
  return records;
}

void JoinWithHeldSecond(const OpenTable& openFirst, const OpenTable& openSecond, const JoinOptions& options,
                        JoinedRows& joined) {
  SecondTable table(options.secondFormat, joined.KeepsUnmatchedSecond() || joined.ListsUnmatchedSecond());
  for (RecordReader second = OpenRows(openSecond, options); second.Next();) {
    table.Add(second, joined);
  }
  RowsByKey& rows = table.rows();
  for (RecordReader first = OpenRows(openFirst, options); first.Next();) {
    const std::uint32_t key = rows.Find(joined.KeyOfFirst(first));
    if (key == RowsByKey::kNone) {
      joined.WriteUnmatchedFirst(first);
      continue;
    }
    rows.Mark(key);
    joined.TakeFirst(first);
    for (std::uint32_t row = rows.FirstRow(key); row != RowsByKey::kNone; row = rows.NextRow(row)) {
      joined.WriteWith(table.Tail(row));
    }
  }
  for (std::uint32_t row = 0; row < rows.rowCount(); ++row) {
    if (rows.IsMarked(rows.KeyOfRow(row))) {
      continue;
    }
    joined.ListUnmatchedSecond(joined.ListsUnmatchedSecond() ? table.Raw(row) : std::string_view());
    if (joined.KeepsUnmatchedSecond()) {
      joined.WriteUnmatchedSecond(table.FieldsOf(row), table.Tail(row));
    }
  }
}

// Holds the keys of the first table and as many partners as it may: those of some rows of the first table after the
// other, with a reading of the second for each lot of them.
class JoinWithStreamedSecond {
 public:
  JoinWithStreamedSecond(const OpenTable& openFirst, const OpenTable& openSecond, const JoinOptions& options,
                         JoinedRows& joined)
      : openFirst_(openFirst), openSecond_(openSecond), options_(options), joined_(joined) {}

  void Run() {
    for (RecordReader first = OpenRows(openFirst_, options_); first.Next();) {
      rows_.Add(joined_.KeyOfFirst(first));
    }
    partners_.emplace(rows_.keyCount());
    bytes_.resize(rows_.keyCount());
    const bool holdsAll = LookThroughSecond();
    RecordReader first = OpenRows(openFirst_, options_);
    for (std::uint32_t begin = 0; begin < rows_.rowCount();) {
      const std::uint32_t end = holdsAll ? static_cast<std::uint32_t>(rows_.rowCount()) : EndOfLot(begin);
      if (!holdsAll) {
        HoldPartners(begin, end);
      }
      for (std::uint32_t row = begin; row < end; ++row) {
        first.Next();
        JoinRow(first, rows_.KeyOfRow(row));
      }
      begin = end;
    }
    if (joined_.KeepsUnmatchedSecond()) {
      WriteUnmatchedSecond();
    }
  }

 private:
  // Counts what the partners of each key take, and lists the rows that have none. Whether all partners could be held.
  bool LookThroughSecond() {
    bool holdsAll = true;
    for (RecordReader second = OpenRows(openSecond_, options_); second.Next();) {
      const std::uint32_t key = rows_.Find(joined_.KeyOfSecond(second));
      if (key == RowsByKey::kNone) {
        joined_.ListUnmatchedSecond(second.raw());
        continue;
      }
      tail_.clear();
      joined_.AppendTail(second, tail_);
      bytes_[key] += tail_.size() + PartnersByKey::kBytesOfRow;
      if (holdsAll) {
        partners_->Add(key, tail_);
        holdsAll = partners_->bytes() <= options_.heldBytes;
      }
    }
    return holdsAll;
  }

  // The lot takes rows, but one at least, until their partners would be too many. The keys are marked.
  std::uint32_t EndOfLot(std::uint32_t begin) {
    rows_.UnmarkAll();
    std::size_t bytes = 0;
    std::uint32_t row = begin;
    for (; row < rows_.rowCount(); ++row) {
      const std::uint32_t key = rows_.KeyOfRow(row);
      if (rows_.IsMarked(key)) {
        continue;
      }
      bytes += bytes_[key];
      if (bytes > options_.heldBytes && row > begin) {
        break;
      }
      rows_.Mark(key);
    }
    return row;
  }

  void HoldPartners(std::uint32_t begin, std::uint32_t end) {
    partners_->Clear();
    const auto hasPartners = [this](std::uint32_t row) { return bytes_[rows_.KeyOfRow(row)] > 0; };
    bool any = false;
    for (std::uint32_t row = begin; row < end && !any; ++row) {
      any = hasPartners(row);
    }
    if (!any) {
      return;
    }
    for (RecordReader second = OpenRows(openSecond_, options_); second.Next();) {
      const std::uint32_t key = rows_.FindMarked(joined_.KeyOfSecond(second));
      if (key != RowsByKey::kNone) {
        tail_.clear();
        joined_.AppendTail(second, tail_);
        partners_->Add(key, tail_);
      }
    }
  }

  void JoinRow(const RecordReader& first, std::uint32_t key) {
    if (bytes_[key] == 0) {
      joined_.WriteUnmatchedFirst(first);
      return;
    }
    joined_.TakeFirst(first);
    for (std::uint32_t row = partners_->FirstRow(key); row != PartnersByKey::kNone; row = partners_->NextRow(row)) {
      joined_.WriteWith(partners_->Tail(row));
    }
  }

  void WriteUnmatchedSecond() {
    for (RecordReader second = OpenRows(openSecond_, options_); second.Next();) {
      if (rows_.Find(joined_.KeyOfSecond(second)) == RowsByKey::kNone) {
        tail_.clear();
        joined_.AppendTail(second, tail_);
        joined_.WriteUnmatchedSecond(second.fields(), tail_);
      }
    }
  }

  const OpenTable& openFirst_;
  const OpenTable& openSecond_;
  const JoinOptions& options_;
  JoinedRows& joined_;
  RowsByKey rows_;                         // of the first table
  std::vector<std::uint64_t> bytes_;       // of the partners, by key; 0 where there are none
  std::optional<PartnersByKey> partners_;  // by the same keys
  std::string tail_;
};

}  // namespace

JoinCounts JoinTables(const OpenTable& openFirst, const OpenTable& openSecond, const JoinOptions& options,
                      const JoinOutputs& outputs, Progress& progress) {
  const TableSize firstSize = SizeOf(openFirst);
  const TableSize secondSize = SizeOf(openSecond);
  JoinedRows joined(options, outputs, progress);
  {
    RecordReader first = openFirst();
    RecordReader second = openSecond();
    first.Next();
    second.Next();
    joined.ChooseColumns(first, firstSize.columns, second, secondSize.columns);
    if (options.hasHeader) {
      joined.WriteHeader(first, second);
    }
  }
  // Holding the second needs fewer readings, so it is held while the tables are of about the same size.
  if (secondSize.bytes / 2 > firstSize.bytes) {
    JoinWithStreamedSecond(openFirst, openSecond, options, joined).Run();
  } else {
    JoinWithHeldSecond(openFirst, openSecond, options, joined);
  }
  return joined.counts();
}

}  // namespace scrivanta
