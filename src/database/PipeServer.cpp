#include "database/PipeServer.h"

#include "database/DatabaseError.h"
#include "database/JetFile.h"
#include "database/OdbcDatabase.h"
#include "text/Encoding.h"

namespace scrivanta {

namespace {

constexpr std::size_t kMostRows = 256;          // of a block
constexpr std::size_t kMostBytes = 256 * 1024;  // of a block, but for its last row

// Asks the other side whether to go on.
class PipeProgress final : public Progress {
 public:
  explicit PipeProgress(PipeChannel& channel) : channel_(channel) {}
  void Report(std::uint64_t done, std::uint64_t total) override {
    channel_.Send(PipeMessage(PipeVerb::kProgress).Put(done).Put(total));
    const std::optional<PipeMessage> answer = channel_.Receive();
    if (!answer || answer->verb() != PipeVerb::kGoOn) {
      throw Interrupted();
    }
  }

 private:
  PipeChannel& channel_;
};

class Server {
 public:
  explicit Server(PipeChannel& channel) : progress_(channel) {}

  PipeMessage Answer(PipeMessage& request) {
    try {
      return Do(request);
    } catch (const BadRow& refusal) {
      DropWork();
      return PipeMessage(PipeVerb::kBadRow)
          .Put(refusal.line())
          .Put(refusal.column())
          .PutBytes(refusal.what())
          .Put(refusal.chinese());
    } catch (const ExplainedError& failure) {
      DropWork();
      return PipeMessage(PipeVerb::kFailed).PutBytes(failure.what()).Put(failure.chinese());
    } catch (const Interrupted&) {
      DropWork();
      return PipeMessage(PipeVerb::kStopped);
    } catch (const std::exception& failure) {
      DropWork();
      return PipeMessage(PipeVerb::kFailed).PutBytes(failure.what()).Put(Decode(Encoding::kUtf8, failure.what()));
    }
  }

 private:
  Database& Opened() const {
    if (database_ == nullptr) {
      throw DatabaseError("no database is open", u"没有打开数据库。");
    }
    return *database_;
  }

  void DropWork() {
    rows_.reset();
    filler_.reset();
  }

  PipeMessage Do(PipeMessage& request) {
    PipeMessage done(PipeVerb::kDone);
    switch (request.verb()) {
      case PipeVerb::kDrivers:
        PutTexts(OdbcDrivers(), done);
        break;
      case PipeVerb::kMakeFile: {
        const std::u16string driver = request.TakeText();
        MakeJetFile(driver, std::filesystem::path(request.TakeText()));
        break;
      }
      case PipeVerb::kOpen:
        DropWork();
        database_ = std::make_unique<OdbcDatabase>(request.TakeText());
        break;
      case PipeVerb::kTables:
        PutTexts(Opened().Tables(progress_), done);
        break;
      case PipeVerb::kCountRows:
        done.Put(Opened().CountRows(request.TakeText(), progress_));
        break;
      case PipeVerb::kColumns:
        for (const DatabaseColumn& column : Opened().Columns(request.TakeText())) {
          done.Put(column);
        }
        break;
      case PipeVerb::kReadTable:
        rows_ = Opened().ReadTable(request.TakeText(), progress_);
        PutTexts(rows_->columns(), done);
        break;
      case PipeVerb::kQuery:
        rows_ = Opened().Query(request.TakeText(), progress_);
        PutTexts(rows_->columns(), done);
        break;
      case PipeVerb::kNextRows:
        PutRows(done);
        break;
      case PipeVerb::kEndRows:
        rows_.reset();
        break;
      case PipeVerb::kFill:
        StartToFill(request);
        break;
      case PipeVerb::kAddRows:
        AddRows(request);
        break;
      case PipeVerb::kCommit:
        Filler().Commit();
        filler_.reset();
        break;
      case PipeVerb::kEndFill:
        filler_.reset();
        break;
      default:
        throw DatabaseError("nobody knows what is asked", u"不明白要做什么。");
    }
    return done;
  }

  static void PutTexts(const std::vector<std::u16string>& texts, PipeMessage& message) {
    for (const std::u16string& text : texts) {
      message.Put(text);
    }
  }

  void PutRows(PipeMessage& message) {
    DatabaseRow row;
    for (std::size_t i = 0; i < kMostRows && message.bytes().size() < kMostBytes; ++i) {
      if (rows_ == nullptr || !rows_->Next(row)) {
        rows_.reset();
        return;
      }
      message.Put(row);
    }
  }

  void StartToFill(PipeMessage& request) {
    FillOrder order;
    order.table = request.TakeText();
    order.makeTable = request.TakeNumber() != 0;
    order.emptyFirst = request.TakeNumber() != 0;
    while (!request.atEnd()) {
      order.columns.push_back(request.TakeColumn());
    }
    filler_ = Opened().Fill(order, progress_);
  }

  TableFiller& Filler() const {
    if (filler_ == nullptr) {
      throw DatabaseError("no table is being filled", u"没有在导入。");
    }
    return *filler_;
  }

  void AddRows(PipeMessage& request) {
    DatabaseRow row;
    while (!request.atEnd()) {
      const std::uint64_t line = request.TakeNumber();
      request.TakeRow(row);
      Filler().Add(row, line);
    }
  }

  PipeProgress progress_;
  std::unique_ptr<Database> database_;
  std::unique_ptr<RowReader> rows_;
  std::unique_ptr<TableFiller> filler_;
};

}  // namespace

void ServeDatabase(PipeChannel& channel) {
  Server server(channel);
  while (std::optional<PipeMessage> request = channel.Receive()) {
    channel.Send(server.Answer(*request));
  }
}

}  // namespace scrivanta
