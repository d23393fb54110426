// Messages between the program and its companion: numbers and texts, one after the other, in the order in which they
// were put in.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "database/Database.h"
#include "text/Bytes.h"

namespace scrivanta {

// What a message asks or answers.
enum class PipeVerb : std::uint8_t {
  // Asked by the program.
  kDrivers,
  kMakeFile,  // driver, file
  kOpen,      // connection string
  kTables,
  kCountRows,  // table
  kColumns,    // table
  kReadTable,  // table
  kQuery,      // statement
  kNextRows,
  kEndRows,
  kFill,  // order
  kAddRows,
  kCommit,
  kEndFill,
  kGoOn,  // answers kProgress
  kStop,
  // Answered by the companion.
  kDone,
  kProgress,  // done, total
  kStopped,
  kFailed,  // what failed, in both languages
  kBadRow,  // line, column, what is wrong with it
};

class PipeMessage {
 public:
  explicit PipeMessage(PipeVerb verb) : verb_(verb) {}
  PipeMessage(PipeVerb verb, std::string bytes) : verb_(verb), bytes_(std::move(bytes)) {}

  PipeVerb verb() const noexcept { return verb_; }
  const std::string& bytes() const noexcept { return bytes_; }

  PipeMessage& Put(std::uint64_t number);
  PipeMessage& Put(std::u16string_view text);
  PipeMessage& PutBytes(std::string_view bytes);
  PipeMessage& Put(const DatabaseColumn& column);
  PipeMessage& Put(const DatabaseRow& row);

  // Throw DatabaseError where the message holds something else.
  std::uint64_t TakeNumber();
  std::u16string TakeText();
  std::string TakeBytes();
  DatabaseColumn TakeColumn();
  void TakeRow(DatabaseRow& row);
  bool atEnd() const noexcept { return next_ == bytes_.size(); }

 private:
  std::string_view Take(std::size_t size);

  PipeVerb verb_;
  std::string bytes_;
  std::size_t next_ = 0;  // of what is not yet taken
};

class PipeChannel {
 public:
  // Both outlive the channel. A Read of the source returns what there is.
  PipeChannel(ByteSource& source, ByteSink& sink) : source_(source), sink_(sink) {}

  void Send(const PipeMessage& message);
  // Nothing when the other side has gone.
  std::optional<PipeMessage> Receive();

 private:
  bool Fill(std::span<char> buffer);

  ByteSource& source_;
  ByteSink& sink_;
};

}  // namespace scrivanta
