#include "contacts/StoredContacts.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace scrivanta {

namespace {

// A contact is, field by field, how many texts there are and each with its length, and the rest with its length.
using Number = std::uint32_t;

constexpr std::size_t kBlockSize = 64 * 1024;

void AppendNumber(std::size_t number, std::string& bytes) {
  const auto fixed = static_cast<Number>(number);
  std::array<char, sizeof fixed> digits;
  std::memcpy(digits.data(), &fixed, sizeof fixed);
  bytes.append(digits.data(), digits.size());
}

void AppendText(const std::string& text, std::string& bytes) {
  AppendNumber(text.size(), bytes);
  bytes += text;
}

}  // namespace

void StoredContactSink::Write(const Contact& contact) {
  bytes_.clear();
  for (const std::vector<std::string>& texts : contact.values) {
    AppendNumber(texts.size(), bytes_);
    for (const std::string& text : texts) {
      AppendText(text, bytes_);
    }
  }
  AppendText(contact.rest, bytes_);
  sink_.Write(bytes_);
}

StoredContactSource::StoredContactSource(ByteSource& source, Progress& progress)
    : source_(source), progress_(progress), buffer_(kBlockSize) {}

bool StoredContactSource::Need(std::size_t bytes) {
  if (end_ - begin_ >= bytes) {
    return true;
  }
  std::copy(buffer_.begin() + begin_, buffer_.begin() + end_, buffer_.begin());
  end_ -= begin_;
  begin_ = 0;
  buffer_.resize(std::max(buffer_.size(), bytes));
  while (end_ < bytes) {
    const std::size_t count = source_.Read(std::span(buffer_).subspan(end_));
    if (count == 0) {
      return false;
    }
    end_ += count;
    bytesRead_ += count;
    progress_.Report(bytesRead_, source_.Size().value_or(0));
  }
  return true;
}

std::size_t StoredContactSource::TakeNumber() {
  Number number = 0;
  if (Need(sizeof number)) {
    std::memcpy(&number, &buffer_[begin_], sizeof number);
    begin_ += sizeof number;
  }
  return number;
}

std::string StoredContactSource::TakeText() {
  const std::size_t size = TakeNumber();
  if (size == 0 || !Need(size)) {
    return {};
  }
  std::string text(&buffer_[begin_], size);
  begin_ += size;
  return text;
}

std::optional<Contact> StoredContactSource::Next() {
  if (!Need(sizeof(Number))) {
    return std::nullopt;
  }
  Contact contact;
  for (std::vector<std::string>& texts : contact.values) {
    const std::size_t count = TakeNumber();
    texts.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
      texts.push_back(TakeText());
    }
  }
  contact.rest = TakeText();
  return contact;
}

}  // namespace scrivanta
