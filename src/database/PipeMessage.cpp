#include "database/PipeMessage.h"

#include <array>
#include <cstring>

#include "database/DatabaseError.h"

namespace scrivanta {

namespace {

constexpr std::size_t kLargestMessage = 1U << 30U;

// How a field of a row is marked.
enum class FieldMark : std::uint8_t { kText, kNumber, kNull };

[[noreturn]] void RefuseMessage() {
  throw DatabaseError("the companion program says what nobody understands", u"32位数据库助手的回答看不懂。");
}

// Both sides run on one machine, and on little-endian ones only.
std::array<char, sizeof(std::uint32_t)> BytesOf(std::uint32_t number) {
  std::array<char, sizeof number> bytes;
  std::memcpy(bytes.data(), &number, sizeof number);
  return bytes;
}

}  // namespace

PipeMessage& PipeMessage::Put(std::uint64_t number) {
  std::array<char, sizeof number> bytes;
  std::memcpy(bytes.data(), &number, sizeof number);
  bytes_.append(bytes.data(), bytes.size());
  return *this;
}

PipeMessage& PipeMessage::PutBytes(std::string_view bytes) {
  Put(bytes.size());
  bytes_ += bytes;
  return *this;
}

PipeMessage& PipeMessage::Put(std::u16string_view text) {
  return PutBytes({reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)});
}

PipeMessage& PipeMessage::Put(const DatabaseColumn& column) {
  return Put(column.name)
      .Put(static_cast<std::uint64_t>(column.type.kind))
      .Put(column.type.length)
      .Put(column.type.scale)
      .Put(column.typeName);
}

PipeMessage& PipeMessage::Put(const DatabaseRow& row) {
  Put(row.size());
  for (std::size_t i = 0; i < row.size(); ++i) {
    const FieldMark mark = row.IsNull(i) ? FieldMark::kNull : row.IsNumber(i) ? FieldMark::kNumber : FieldMark::kText;
    bytes_ += static_cast<char>(mark);
    Put(row[i]);
  }
  return *this;
}

std::string_view PipeMessage::Take(std::size_t size) {
  if (size > bytes_.size() - next_) {
    RefuseMessage();
  }
  const std::string_view taken = std::string_view(bytes_).substr(next_, size);
  next_ += size;
  return taken;
}

std::uint64_t PipeMessage::TakeNumber() {
  std::uint64_t number = 0;
  std::memcpy(&number, Take(sizeof number).data(), sizeof number);
  return number;
}

std::string PipeMessage::TakeBytes() {
  return std::string(Take(static_cast<std::size_t>(TakeNumber())));
}

std::u16string PipeMessage::TakeText() {
  const std::string_view bytes = Take(static_cast<std::size_t>(TakeNumber()));
  std::u16string text(bytes.size() / sizeof(char16_t), u'\0');
  std::memcpy(text.data(), bytes.data(), text.size() * sizeof(char16_t));
  return text;
}

DatabaseColumn PipeMessage::TakeColumn() {
  DatabaseColumn column;
  column.name = TakeText();
  column.type.kind = static_cast<ColumnKind>(TakeNumber());
  column.type.length = static_cast<std::size_t>(TakeNumber());
  column.type.scale = static_cast<std::size_t>(TakeNumber());
  column.typeName = TakeText();
  return column;
}

void PipeMessage::TakeRow(DatabaseRow& row) {
  row.Clear();
  const std::uint64_t count = TakeNumber();
  for (std::uint64_t i = 0; i < count; ++i) {
    const auto mark = static_cast<FieldMark>(Take(1).front());
    row.text() += TakeText();
    switch (mark) {
      case FieldMark::kNull:
        row.AddNull();
        break;
      case FieldMark::kNumber:
        row.EndNumber();
        break;
      default:
        row.EndField();
    }
  }
}

void PipeChannel::Send(const PipeMessage& message) {
  const auto size = BytesOf(static_cast<std::uint32_t>(message.bytes().size()));
  std::string bytes(size.data(), size.size());
  bytes += static_cast<char>(message.verb());
  bytes += message.bytes();
  sink_.Write(bytes);
}

std::optional<PipeMessage> PipeChannel::Receive() {
  std::array<char, sizeof(std::uint32_t) + 1> head;
  if (!Fill(head)) {
    return std::nullopt;
  }
  std::uint32_t size = 0;
  std::memcpy(&size, head.data(), sizeof size);
  if (size > kLargestMessage) {
    RefuseMessage();
  }
  std::string bytes(size, '\0');
  if (!Fill(bytes)) {
    return std::nullopt;
  }
  return PipeMessage(static_cast<PipeVerb>(head.back()), std::move(bytes));
}

bool PipeChannel::Fill(std::span<char> buffer) {
  while (!buffer.empty()) {
    const std::size_t count = source_.Read(buffer);
    if (count == 0) {
      return false;
    }
    buffer = buffer.subspan(count);
  }
  return true;
}

}  // namespace scrivanta
