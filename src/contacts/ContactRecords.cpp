#include "contacts/ContactRecords.h"

#include <algorithm>

namespace scrivanta {

namespace {

RecordFormat FormatOf(RecordForm form, Encoding encoding) {
  return {.separation = form == RecordForm::kTabs ? Separation::kTab : Separation::kComma, .encoding = encoding};
}

std::string Escaped(std::string_view field) {
  std::string escaped;
  escaped.reserve(field.size());
  for (const char c : field) {
    switch (c) {
      case '\n':
        escaped += "\\n";
        break;
      case '\t':
        escaped += "\\t";
        break;
      case '\\':
        escaped += "\\\\";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

// A backslash before anything else is one that a person has typed.
std::string Unescaped(std::string_view field) {
  std::string plain;
  for (std::size_t i = 0; i < field.size(); ++i) {
    const char next = field[i] == '\\' && i + 1 < field.size() ? field[i + 1] : '\0';
    const char meant = next == 'n' ? '\n' : next == 't' ? '\t' : next == '\\' ? '\\' : '\0';
    plain += meant != '\0' ? meant : field[i];
    i += meant != '\0' ? 1 : 0;
  }
  return plain;
}

std::string Recoded(Encoding from, Encoding to, std::string_view text) {
  return from == to ? std::string(text) : Encode(to, Decode(from, text));
}

}  // namespace

RecordContactSink::RecordContactSink(ByteSink& sink, RecordForm form, Encoding encoding, const TableShape& shape)
    : form_(form), encoding_(encoding), shape_(shape), out_(sink), records_(out_, FormatOf(form, encoding)) {
  WriteRecord(shape_.Header());
}

void RecordContactSink::WriteRecord(const std::vector<std::string>& fields) {
  std::vector<std::string> encoded;
  for (const std::string& field : fields) {
    encoded.push_back(Recoded(Encoding::kUtf8, encoding_, form_ == RecordForm::kTabs ? Escaped(field) : field));
  }
  const std::vector<std::string_view> views(encoded.begin(), encoded.end());
  records_.Write(views, ++number_);
}

void RecordContactSink::Write(const Contact& contact) {
  WriteRecord(shape_.RecordOf(contact));
}

RecordContactSource::RecordContactSource(ByteSource& source, RecordForm form, Encoding encoding, Progress& progress)
    : form_(form), encoding_(encoding), records_(source, FormatOf(form, encoding), progress) {}

bool RecordContactSource::NextRecord() {
  if (!records_.Next()) {
    return false;
  }
  fields_.clear();
  for (const std::string_view field : records_.fields()) {
    const std::string text = Recoded(encoding_, Encoding::kUtf8, field);
    fields_.push_back(form_ == RecordForm::kTabs ? Unescaped(text) : text);
    std::erase(fields_.back(), '\r');
  }
  return true;
}

std::optional<Contact> RecordContactSource::Next() {
  while (NextRecord()) {
    if (std::ranges::all_of(fields_, &std::string::empty)) {
      continue;
    }
    if (!columns_) {
      columns_.emplace(fields_);
      continue;
    }
    return columns_->ContactOf(fields_);
  }
  return std::nullopt;
}

}  // namespace scrivanta
