#include "database/PipeDatabase.h"

#include "database/DatabaseError.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

constexpr std::size_t kMostBytes = 256 * 1024;  // of a block of rows, but for its last one

std::vector<std::u16string> TakeTexts(PipeMessage message) {
  std::vector<std::u16string> texts;
  while (!message.atEnd()) {
    texts.push_back(message.TakeText());
  }
  return texts;
}

// What ends on the other side with an object here. Where the other side has gone, it has ended already.
void EndQuietly(PipeDatabase& database, PipeVerb verb) noexcept {
  try {
    NoProgress progress;
    database.Ask(PipeMessage(verb), progress);
  } catch (const std::exception&) {
  }
}

class PipeReader final : public RowReader {
 public:
  PipeReader(PipeDatabase& database, const PipeMessage& request, Progress& progress)
      : database_(database), progress_(progress) {
    columns_ = TakeTexts(database_.Ask(request, progress_));
  }
  ~PipeReader() override { EndQuietly(database_, PipeVerb::kEndRows); }

  bool Next(DatabaseRow& row) override {
    if (block_.atEnd()) {
      block_ = database_.Ask(PipeMessage(PipeVerb::kNextRows), progress_);
    }
    if (block_.atEnd()) {
      return false;
    }
    block_.TakeRow(row);
    return true;
  }

 private:
  PipeDatabase& database_;
  Progress& progress_;
  PipeMessage block_{PipeVerb::kDone};
};

class PipeFiller final : public TableFiller {
 public:
  PipeFiller(PipeDatabase& database, const FillOrder& order, Progress& progress)
      : database_(database), progress_(progress) {
    PipeMessage request(PipeVerb::kFill);
    request.Put(order.table).Put(order.makeTable ? 1 : 0).Put(order.emptyFirst ? 1 : 0);
    for (const DatabaseColumn& column : order.columns) {
      request.Put(column);
    }
    database_.Ask(request, progress_);
  }
  ~PipeFiller() override { EndQuietly(database_, PipeVerb::kEndFill); }

  void Add(const DatabaseRow& row, std::uint64_t line) override {
    block_.Put(line).Put(row);
    if (block_.bytes().size() > kMostBytes) {
      Flush();
    }
  }

  void Commit() override {
    Flush();
    database_.Ask(PipeMessage(PipeVerb::kCommit), progress_);
  }

 private:
  void Flush() {
    const PipeMessage full = std::exchange(block_, PipeMessage(PipeVerb::kAddRows));
    database_.Ask(full, progress_);
  }

  PipeDatabase& database_;
  Progress& progress_;
  PipeMessage block_{PipeVerb::kAddRows};
};

}  // namespace

PipeDatabase::PipeDatabase(const std::filesystem::path& companion)
    : process_(companion), channel_(process_.output(), process_.input()) {}

PipeMessage PipeDatabase::Ask(const PipeMessage& request, Progress& progress) {
  channel_.Send(request);
  std::exception_ptr stopped;
  while (std::optional<PipeMessage> answer = channel_.Receive()) {
    switch (answer->verb()) {
      case PipeVerb::kProgress: {
        const std::uint64_t done = answer->TakeNumber();
        try {
          progress.Report(done, answer->TakeNumber());
        } catch (...) {
          stopped = std::current_exception();
        }
        channel_.Send(PipeMessage(stopped == nullptr ? PipeVerb::kGoOn : PipeVerb::kStop));
        break;
      }
      case PipeVerb::kStopped:
        std::rethrow_exception(stopped != nullptr ? stopped : std::make_exception_ptr(Interrupted()));
      case PipeVerb::kBadRow: {
        const std::uint64_t line = answer->TakeNumber();
        const auto column = static_cast<std::size_t>(answer->TakeNumber());
        const std::string english = answer->TakeBytes();
        throw BadRow(line, column, english, answer->TakeText());
      }
      case PipeVerb::kFailed: {
        const std::string english = answer->TakeBytes();
        throw DatabaseError(english, answer->TakeText());
      }
      default:
        return std::move(*answer);
    }
  }
  throw DatabaseError("the companion program has ended; nothing that was not finished has been kept",
                      u"32位数据库助手意外结束，没有完成的改动都没有保留。请重新打开数据库。");
}

std::vector<std::u16string> PipeDatabase::Drivers() {
  NoProgress progress;
  return TakeTexts(Ask(PipeMessage(PipeVerb::kDrivers), progress));
}

void PipeDatabase::MakeJetFile(std::u16string_view driver, const std::filesystem::path& file) {
  NoProgress progress;
  Ask(PipeMessage(PipeVerb::kMakeFile).Put(driver).Put(TextOfPath(file)), progress);
}

void PipeDatabase::Open(std::u16string_view connectionString) {
  NoProgress progress;
  Ask(PipeMessage(PipeVerb::kOpen).Put(connectionString), progress);
}

std::vector<std::u16string> PipeDatabase::Tables(Progress& progress) {
  return TakeTexts(Ask(PipeMessage(PipeVerb::kTables), progress));
}

std::uint64_t PipeDatabase::CountRows(std::u16string_view table, Progress& progress) {
  return Ask(PipeMessage(PipeVerb::kCountRows).Put(table), progress).TakeNumber();
}

std::vector<DatabaseColumn> PipeDatabase::Columns(std::u16string_view table) {
  NoProgress progress;
  PipeMessage answer = Ask(PipeMessage(PipeVerb::kColumns).Put(table), progress);
  std::vector<DatabaseColumn> columns;
  while (!answer.atEnd()) {
    columns.push_back(answer.TakeColumn());
  }
  return columns;
}

std::unique_ptr<RowReader> PipeDatabase::ReadTable(std::u16string_view table, Progress& progress) {
  return std::make_unique<PipeReader>(*this, PipeMessage(PipeVerb::kReadTable).Put(table), progress);
}

std::unique_ptr<RowReader> PipeDatabase::Query(std::u16string_view statement, Progress& progress) {
  return std::make_unique<PipeReader>(*this, PipeMessage(PipeVerb::kQuery).Put(statement), progress);
}

std::unique_ptr<TableFiller> PipeDatabase::Fill(const FillOrder& order, Progress& progress) {
  return std::make_unique<PipeFiller>(*this, order, progress);
}

}  // namespace scrivanta
