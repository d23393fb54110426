#include "tables/RecordWriter.h"

#include <algorithm>

#include "tables/AlignedFinder.h"
#include "tables/Blanks.h"
#include "tables/RecordError.h"

namespace scrivanta {

namespace {

std::string DelimiterOf(const RecordFormat& format) {
  switch (format.separation) {
    case Separation::kComma:
      return ",";
    case Separation::kSemicolon:
      return ";";
    case Separation::kBlanks:
      return " ";
    case Separation::kText:
      return Encode(format.encoding, format.text);
    case Separation::kTab:
    case Separation::kPattern:
    case Separation::kFixedWidths:
      break;
  }
  return "\t";
}

bool IsQuoted(Separation separation) {
  return separation == Separation::kComma || separation == Separation::kSemicolon;
}

void AppendInQuotes(std::string_view field, std::string& record) {
  record += '"';
  for (std::size_t quote = field.find('"'); quote != std::string_view::npos; quote = field.find('"')) {
    record.append(field, 0, quote + 1) += '"';
    field.remove_prefix(quote + 1);
  }
  record.append(field) += '"';
}

}  // namespace

FieldEncoder::FieldEncoder(const RecordFormat& format)
    : encoding_(format.encoding), separation_(format.separation), delimiter_(DelimiterOf(format)) {}

bool FieldEncoder::HoldsDelimiter(std::string_view field) const {
  switch (separation_) {
    case Separation::kBlanks:
      return FindBlank(encoding_, field) < field.size();
    case Separation::kText:
      return AlignedFinder(encoding_, delimiter_).Find(field) != std::string_view::npos;
    default:
      return field.find(delimiter_.front()) != std::string_view::npos;
  }
}

bool FieldEncoder::Append(std::string_view field, std::string& record) const {
  if (IsQuoted(separation_)) {
    const bool holdsQuote = std::ranges::any_of(field, [](char c) { return c == '"' || c == '\r' || c == '\n'; });
    if (holdsQuote || HoldsDelimiter(field)) {
      AppendInQuotes(field, record);
      return true;
    }
  } else if (field.find('\n') != std::string_view::npos || HoldsDelimiter(field)) {
    return false;
  }
  record.append(field);
  return true;
}

void RecordWriter::Write(std::span<const std::string_view> fields, std::uint64_t line) {
  record_.clear();
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (i > 0) {
      record_.append(encoder_.delimiter());
    }
    if (!encoder_.Append(fields[i], record_)) {
      throw RecordError(line, i + 1, "the field holds a delimiter or a line break", u"字段中有分隔符或换行");
    }
  }
  out_.WriteLine(record_);
}

}  // namespace scrivanta
