#include "contacts/ContactTable.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "contacts/CardProperty.h"
#include "contacts/CardWriter.h"
#include "contacts/ContactProperty.h"
#include "contacts/KeptLines.h"
#include "text/ExplainedError.h"

namespace scrivanta {

namespace {

constexpr std::array<std::string_view, kContactFields> kCaptions = {
    "姓名", "手机", "住宅电话", "单位电话", "传真", "邮箱", "地址", "单位", "职务", "生日", "网址", "备注"};
constexpr std::string_view kRestCaption = "其他";

constexpr auto kOtherCaptions = std::to_array<std::pair<std::string_view, ContactField>>({
    {"名字", ContactField::kName},          {"name", ContactField::kName},
    {"手机号", ContactField::kMobile},      {"手机号码", ContactField::kMobile},
    {"移动电话", ContactField::kMobile},    {"电话", ContactField::kMobile},
    {"电话号码", ContactField::kMobile},    {"联系电话", ContactField::kMobile},
    {"phone", ContactField::kMobile},       {"mobile", ContactField::kMobile},
    {"家庭电话", ContactField::kHomePhone}, {"办公电话", ContactField::kWorkPhone},
    {"公司电话", ContactField::kWorkPhone}, {"电子邮件", ContactField::kEmail},
    {"邮件", ContactField::kEmail},         {"email", ContactField::kEmail},
    {"住址", ContactField::kAddress},       {"公司", ContactField::kOrganisation},
    {"职位", ContactField::kTitle},         {"出生日期", ContactField::kBirthday},
    {"网站", ContactField::kWebSite},       {"说明", ContactField::kNote},
});

// Where the character that begins here ends.
std::size_t NextCharacter(std::string_view text, std::size_t at) {
  do {
    ++at;
  } while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80);
  return at;
}

// Of a character of UTF-8, in UTF-16 units.
std::size_t UnitsOf(char lead) {
  return static_cast<unsigned char>(lead) >= 0xF0 ? 2 : 1;
}

std::size_t CountUnits(std::string_view text) {
  std::size_t units = 0;
  for (std::size_t i = 0; i < text.size(); i = NextCharacter(text, i)) {
    units += UnitsOf(text[i]);
  }
  return units;
}

std::string Numbered(std::string_view caption, std::size_t number) {
  return std::string(caption) + (number == 1 ? "" : std::to_string(number));
}

}  // namespace

// What a field of the table cannot hold is kept like a property without a field.
std::optional<Contact> TableShape::Fitted(const Contact& contact) const {
  const auto isTooLong = [this](const std::string& text) {
    return text.size() > longestCell_ && CountUnits(text) > longestCell_;
  };
  if (std::ranges::none_of(contact.values, [&](const auto& texts) { return std::ranges::any_of(texts, isTooLong); })) {
    return std::nullopt;
  }
  Contact fitted = contact;
  for (std::size_t i = 0; i < kContactFields; ++i) {
    const auto field = static_cast<ContactField>(i);
    for (const std::string& text : contact.values[i]) {
      if (isTooLong(text)) {
        fitted.rest += fitted.rest.empty() ? "" : "\n";
        AppendMarkedLine(ReadableProperty(std::string(HeadOf(field)), PartsOfField(field, text)), fitted.rest);
      }
    }
    std::erase_if(fitted.values[i], isTooLong);
  }
  return fitted;
}

std::vector<std::string> TableShape::PartsOfRest(const std::string& rest) const {
  if (rest.size() <= longestCell_) {
    return {rest};
  }
  std::vector<std::string> parts;
  std::size_t begin = 0;
  std::size_t units = 0;
  for (std::size_t i = 0; i < rest.size(); i = NextCharacter(rest, i)) {
    if (units + UnitsOf(rest[i]) > longestCell_) {
      parts.push_back(rest.substr(begin, i - begin));
      begin = i;
      units = 0;
    }
    units += UnitsOf(rest[i]);
  }
  parts.push_back(rest.substr(begin));
  return parts;
}

void TableShape::Widen(const Contact& contact) {
  const std::optional<Contact> fitted = Fitted(contact);
  const Contact& fitting = fitted ? *fitted : contact;
  for (std::size_t i = 0; i < kContactFields; ++i) {
    columns_[i] = std::max(columns_[i], fitting.values[i].size());
  }
  if (fitting.rest.size() > longestCell_) {
    restColumns_ = std::max(restColumns_, PartsOfRest(fitting.rest).size());
  }
}

std::vector<std::string> TableShape::Header() const {
  std::vector<std::string> header;
  for (std::size_t i = 0; i < kContactFields; ++i) {
    for (std::size_t number = 1; number <= columns_[i]; ++number) {
      header.push_back(Numbered(kCaptions[i], number));
    }
  }
  for (std::size_t number = 1; number <= restColumns_; ++number) {
    header.push_back(Numbered(kRestCaption, number));
  }
  return header;
}

std::vector<std::string> TableShape::RecordOf(const Contact& contact) const {
  const std::optional<Contact> fitted = Fitted(contact);
  const Contact& fitting = fitted ? *fitted : contact;
  std::vector<std::string> record;
  const auto append = [&record](std::vector<std::string> texts, std::size_t columns) {
    texts.resize(columns);
    std::ranges::move(texts, std::back_inserter(record));
  };
  for (std::size_t i = 0; i < kContactFields; ++i) {
    append(fitting.values[i], columns_[i]);
  }
  append(PartsOfRest(fitting.rest), restColumns_);
  return record;
}

TableColumns::Column TableColumns::ColumnOf(std::string_view caption) {
  const std::string whole(WithoutBlanksAround(caption));
  std::string name = whole;
  name.resize(name.find_last_not_of("0123456789") + 1);
  if (name == kRestCaption) {
    return {Kind::kRest, ContactField::kNote, whole};
  }
  if (const auto* const found = std::ranges::find(kCaptions, name); found != kCaptions.end()) {
    return {Kind::kField, static_cast<ContactField>(found - kCaptions.begin()), whole};
  }
  for (const auto& [other, field] : kOtherCaptions) {
    if (EqualIgnoringCase(other, name)) {
      return {Kind::kField, field, whole};
    }
  }
  return {Kind::kUnknown, ContactField::kNote, whole};
}

TableColumns::TableColumns(const std::vector<std::string>& header) {
  const auto isNameOrNumber = [](const Column& column) {
    return column.kind == Kind::kField && column.field <= ContactField::kFax;
  };
  std::ranges::transform(header, std::back_inserter(columns_),
                         [](const std::string& caption) { return ColumnOf(caption); });
  if (std::ranges::none_of(columns_, isNameOrNumber)) {
    throw ExplainedError("the first record must name the columns, at least one of 姓名, 手机, 住宅电话, 单位电话, 传真",
                         u"第一行应是列名，至少要有“姓名”“手机”“住宅电话”“单位电话”“传真”中的一个。");
  }
}

Contact TableColumns::ContactOf(const std::vector<std::string>& record) const {
  Contact contact;
  for (std::size_t i = 0; i < record.size(); ++i) {
    if (record[i].empty()) {
      continue;
    }
    const Column column = i < columns_.size() ? columns_[i] : Column{};
    const bool isSecondName = column.field == ContactField::kName && !contact.name().empty();
    if (column.kind == Kind::kRest) {
      contact.rest += record[i];
    } else if (column.kind == Kind::kField && !isSecondName) {
      contact[column.field].push_back(record[i]);
    } else {
      contact[ContactField::kNote].push_back(column.caption.empty() ? record[i] : column.caption + "：" + record[i]);
    }
  }
  return contact;
}

}  // namespace scrivanta
