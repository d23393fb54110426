// Contacts as bytes of a store of our own, which is read faster than cards: for a book that is gone through more than
// once.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "contacts/ContactSink.h"
#include "text/Bytes.h"
#include "text/Progress.h"

namespace scrivanta {

class StoredContactSink final : public ContactSink {
 public:
  explicit StoredContactSink(ByteSink& sink) : sink_(sink) {}
  void Write(const Contact& contact) override;
  void Finish() override {}

 private:
  ByteSink& sink_;
  std::string bytes_;
};

class StoredContactSource final : public ContactSource {
 public:
  // The source stands at the beginning of what a StoredContactSink has written.
  StoredContactSource(ByteSource& source, Progress& progress);
  std::optional<Contact> Next() override;

 private:
  // False at the end.
  bool Need(std::size_t bytes);
  std::size_t TakeNumber();
  std::string TakeText();

  ByteSource& source_;
  Progress& progress_;
  std::vector<char> buffer_;
  std::size_t begin_ = 0;  // of what is not yet taken, in buffer_
  std::size_t end_ = 0;
  std::uint64_t bytesRead_ = 0;
};

}  // namespace scrivanta
