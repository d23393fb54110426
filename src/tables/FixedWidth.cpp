#include "tables/FixedWidth.h"

#include <algorithm>

#include "text/DecimalText.h"

namespace scrivanta {

namespace {

constexpr std::size_t kMostNamed = 100;
constexpr std::size_t kMostNamedInWindow = 15;
constexpr std::string_view kEndMark = "\x1A";

class Misfits {
 public:
  void Add(const RecordError& error) {
    if (++count_ <= kMostNamed) {
      english_ += (english_.empty() ? "" : "; ") + std::string(error.what());
    }
    if (count_ <= kMostNamedInWindow) {
      chinese_ += u"\n" + error.chinese();
    }
  }

  void ThrowIfAny() const {
    if (count_ == 0) {
      return;
    }
    const std::string more = count_ > kMostNamed ? "; " + std::to_string(count_) + " fields in all" : "";
    const std::u16string rest = count_ > kMostNamedInWindow ? u"\n……" : u"";
    throw FieldsDoNotFit("fields do not fit: " + english_ + more,
                         u"有" + DecimalText(count_) + u"个字段放不下，文本未改动：" + chinese_ + rest);
  }

 private:
  std::uint64_t count_ = 0;
  std::string english_;
  std::u16string chinese_;
};

RecordError TooWide(std::uint64_t line, std::size_t column, std::size_t width, std::size_t allowed) {
  return {line, column, "the field is " + std::to_string(width) + " wide, " + std::to_string(allowed) + " are allowed",
          u"字段宽" + DecimalText(width) + u"，只允许" + DecimalText(allowed)};
}

void AppendField(std::string_view field, std::size_t padding, FieldAlign align, std::string& record) {
  if (align == FieldAlign::kLeft) {
    record.append(field).append(padding, ' ');
    return;
  }
  if (align == FieldAlign::kZeros && (field.starts_with('-') || field.starts_with('+'))) {
    record += field.front();
    field.remove_prefix(1);
  }
  record.append(padding, align == FieldAlign::kZeros ? '0' : ' ').append(field);
}

void AppendRecord(const RecordReader& in, const FixedLayout& layout, const TextWidth& width, Misfits& misfits,
                  std::string& record) {
  const std::size_t columns = std::max(layout.columns.size(), in.fields().size());
  for (std::size_t i = 0; i < columns; ++i) {
    const std::string_view field = in.Field(i);
    if (i >= layout.columns.size()) {
      misfits.Add({in.line(), i + 1, "there is no width for the field", u"没有为这一列指定宽度"});
      continue;
    }
    if (field.find('\n') != std::string_view::npos) {
      misfits.Add({in.line(), i + 1, "the field holds a line break", u"字段中有换行"});
      continue;
    }
    const FixedColumn& column = layout.columns[i];
    const std::size_t fieldWidth = width.Of(field);
    if (fieldWidth > column.width) {
      misfits.Add(TooWide(in.line(), i + 1, fieldWidth, column.width));
      continue;
    }
    AppendField(field, column.width - fieldWidth, column.align, record);
  }
}

std::string_view WithoutPadding(std::string_view field, FieldAlign align) {
  if (align == FieldAlign::kRight) {
    field.remove_prefix(std::min(field.find_first_not_of(' '), field.size()));
  }
  return field.substr(0, field.find_last_not_of(' ') + 1);
}

}  // namespace

FixedLayout FindLayout(RecordReader& records, const TextWidth& width, WidthUnit unit) {
  FixedLayout layout{.unit = unit};
  while (records.Next()) {
    const Fields& fields = records.fields();
    layout.columns.resize(std::max(layout.columns.size(), fields.size()));
    for (std::size_t i = 0; i < fields.size(); ++i) {
      std::size_t& widest = layout.columns[i].width;
      widest = std::max(widest, width.Of(fields[i]));
    }
  }
  return layout;
}

std::uint64_t WriteFixedWidth(RecordReader& records, LineWriter& out, const FixedLayout& layout, Encoding encoding) {
  const TextWidth width(encoding, layout.unit);
  Misfits misfits;
  std::string record;
  while (records.Next()) {
    record.clear();
    AppendRecord(records, layout, width, misfits, record);
    out.WriteLine(record);
  }
  misfits.ThrowIfAny();
  if (layout.endMark) {
    out.WriteRaw(kEndMark);
  }
  return records.number();
}

std::uint64_t ReadFixedWidth(RecordReader& records, RecordWriter& out, const FixedLayout& layout) {
  std::vector<std::string_view> fields;
  while (records.Next()) {
    fields = records.fields();
    for (std::size_t i = 0; i < fields.size(); ++i) {
      fields[i] = WithoutPadding(fields[i], layout.columns[i].align);
    }
    out.Write(fields, records.line());
  }
  return records.number();
}

}  // namespace scrivanta
