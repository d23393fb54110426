// Contacts out of cards and into cards.
#pragma once

#include <cstdint>
#include <vector>

#include "contacts/CardReader.h"
#include "contacts/CardWriter.h"
#include "contacts/ContactSink.h"

namespace scrivanta {

// A line of a card file that was not understood. It is kept in its contact, if it stands in one.
struct NotUnderstood {
  std::uint64_t card = 0;  // from 1; 0: outside of all cards
  std::uint64_t line = 0;  // from 1

  bool operator==(const NotUnderstood&) const = default;
};

class CardContactSource final : public ContactSource {
 public:
  CardContactSource(ByteSource& source, Progress& progress) : reader_(source, progress) {}

  // Throws ExplainedError at the end of a file that holds something, but no card.
  std::optional<Contact> Next() override;
  // Complete once Next has come to the end.
  const std::vector<NotUnderstood>& notUnderstood() const noexcept { return notUnderstood_; }

 private:
  CardReader reader_;
  std::uint64_t cards_ = 0;
  std::vector<NotUnderstood> notUnderstood_;
};

class CardContactSink final : public ContactSink {
 public:
  explicit CardContactSink(ByteSink& sink) : writer_(sink) {}
  void Write(const Contact& contact) override;
  void Finish() override { writer_.Flush(); }

 private:
  CardWriter writer_;
};

}  // namespace scrivanta
