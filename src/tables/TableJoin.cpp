#include "tables/TableJoin.h"

#include <algorithm>
#include <deque>
#include <optional>

#include "tables/JoinedRows.h"
#include "tables/PartnerSpool.h"
#include "tables/PartnersByKey.h"
#include "tables/SecondRows.h"

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
  SecondRows table(options.secondFormat, joined.KeepsUnmatchedSecond() || joined.ListsUnmatchedSecond());
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
// other, a lot. The partners of the lots wait in temporary files.
class JoinWithStreamedSecond {
 public:
  JoinWithStreamedSecond(const OpenTable& openFirst, const OpenTable& openSecond, const JoinOptions& options,
                         JoinedRows& joined, Progress& progress)
      : openFirst_(openFirst), openSecond_(openSecond), options_(options), joined_(joined), progress_(progress) {}

  void Run() {
    for (RecordReader first = OpenRows(openFirst_, options_); first.Next();) {
      rows_.Add(joined_.KeyOfFirst(first));
    }
    partners_.emplace(rows_.keyCount());
    bytes_.resize(rows_.keyCount());
    LookThroughSecond();
    RecordReader first = OpenRows(openFirst_, options_);
    if (!all_) {
      JoinRows(first, 0, static_cast<std::uint32_t>(rows_.rowCount()));
    } else {
      DivideIntoLots();
      for (std::size_t lot = 0; lot < lotEnds_.size(); lot += kLotsAtATime) {
        JoinLots(first, lot, std::min(lot + kLotsAtATime, lotEnds_.size()));
      }
    }
    if (joined_.KeepsUnmatchedSecond()) {
      WriteUnmatchedSecond();
    }
  }

 private:
  // Each has a temporary file for a while.
  static constexpr std::size_t kLotsAtATime = 64;
  static constexpr std::size_t kHeldOfLot = 128 * 1024;  // bytes, of those that wait
  static constexpr std::uint32_t kNoLot = 0xFFFFFFFF;

  // Counts what the partners of each key take, and lists the rows that have none. The partners are held while they may
  // be, else all wait in a file.
  void LookThroughSecond() {
    for (RecordReader second = OpenRows(openSecond_, options_); second.Next();) {
      const std::uint32_t key = rows_.Find(joined_.KeyOfSecond(second));
      if (key == RowsByKey::kNone) {
        joined_.ListUnmatchedSecond(second.raw());
        continue;
      }
      tail_.clear();
      joined_.AppendTail(second, tail_);
      bytes_[key] += tail_.size() + PartnersByKey::kBytesOfRow;
      if (all_) {
        all_->Add(key, tail_);
        continue;
      }
      partners_->Add(key, tail_);
      if (partners_->bytes() > options_.heldBytes) {
        SpoolHeldPartners();
      }
    }
  }

  void SpoolHeldPartners() {
    all_.emplace(kHeldOfLot);
    for (std::uint32_t key = 0; key < rows_.keyCount(); ++key) {
      ForEachPartner(key, [&](std::string_view tail) { all_->Add(key, tail); });
    }
    partners_->Clear();
  }

  // A lot takes rows, but one at least, until their partners would be too many.
  void DivideIntoLots() {
    std::vector<std::uint32_t> lotOfKey(rows_.keyCount(), kNoLot);  // the last that has it
    std::uint64_t bytes = 0;
    for (std::uint32_t row = 0; row < rows_.rowCount(); ++row) {
      const std::uint32_t key = rows_.KeyOfRow(row);
      auto lot = static_cast<std::uint32_t>(lotEnds_.size());
      if (lotOfKey[key] != lot && bytes > 0 && bytes + bytes_[key] > options_.heldBytes) {
        lotEnds_.push_back(row);
        ++lot;
        bytes = 0;
      }
      bytes += lotOfKey[key] == lot ? 0 : bytes_[key];
      lotOfKey[key] = lot;
    }
    lotEnds_.push_back(static_cast<std::uint32_t>(rows_.rowCount()));
  }

  void JoinLots(RecordReader& first, std::size_t begin, std::size_t end) {
    std::deque<PartnerSpool> lots;
    for (std::size_t lot = begin; lot < end; ++lot) {
      lots.emplace_back(kHeldOfLot);
    }
    all_->ForEach(progress_, [&](std::uint32_t key, std::string_view tail) {
      std::size_t last = lotEnds_.size();
      for (std::uint32_t row = rows_.FirstRow(key); row != RowsByKey::kNone; row = rows_.NextRow(row)) {
        const std::size_t lot = LotOfRow(row);
        if (lot != last && lot >= begin && lot < end) {
          lots[lot - begin].Add(key, tail);
        }
        last = lot;
      }
    });
    for (std::size_t lot = begin; lot < end; ++lot) {
      partners_->Clear();
      lots[lot - begin].ForEach(progress_,
                                [&](std::uint32_t key, std::string_view tail) { partners_->Add(key, tail); });
      JoinRows(first, lot == 0 ? 0 : lotEnds_[lot - 1], lotEnds_[lot]);
    }
  }

  std::size_t LotOfRow(std::uint32_t row) const {
    return static_cast<std::size_t>(std::ranges::upper_bound(lotEnds_, row) - lotEnds_.begin());
  }

  void JoinRows(RecordReader& first, std::uint32_t begin, std::uint32_t end) {
    for (std::uint32_t row = begin; row < end; ++row) {
      first.Next();
      JoinRow(first, rows_.KeyOfRow(row));
    }
  }

  void JoinRow(const RecordReader& first, std::uint32_t key) {
    if (bytes_[key] == 0) {
      joined_.WriteUnmatchedFirst(first);
      return;
    }
    joined_.TakeFirst(first);
    ForEachPartner(key, [this](std::string_view tail) { joined_.WriteWith(tail); });
  }

  void ForEachPartner(std::uint32_t key, const auto& visit) {
    for (std::uint32_t row = partners_->FirstRow(key); row != PartnersByKey::kNone; row = partners_->NextRow(row)) {
      visit(partners_->Tail(row));
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
  Progress& progress_;
  RowsByKey rows_;                         // of the first table
  std::vector<std::uint64_t> bytes_;       // of the partners, by key; 0 where there are none
  std::optional<PartnersByKey> partners_;  // of all rows or of a lot, by the same keys
  std::optional<PartnerSpool> all_;        // partners, when they are too many to be held
  std::vector<std::uint32_t> lotEnds_;     // the row behind each lot
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
    JoinWithStreamedSecond(openFirst, openSecond, options, joined, progress).Run();
  } else {
    JoinWithHeldSecond(openFirst, openSecond, options, joined);
  }
  return joined.counts();
}

}  // namespace scrivanta
