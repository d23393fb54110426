#include <algorithm>
#include <charconv>
#include <map>
#include <optional>

#include <pugixml.hpp>

#include "sheets/SheetFile.h"
#include "sheets/SheetFormats.h"
#include "sheets/ZipArchive.h"
#include "text/Encoding.h"
#include "text/LineText.h"

namespace scrivanta {

namespace {

constexpr std::size_t kRowsAReport = 1024;
// White space alone is a text too.
constexpr unsigned kParsing = pugi::parse_default | pugi::parse_ws_pcdata_single;

// Names come with the prefix of their namespace or without.
std::string_view LocalName(std::string_view name) {
  return name.substr(name.find(':') + 1);
}

bool IsNamed(const pugi::xml_node& node, std::string_view name) {
  return LocalName(node.name()) == name;
}

pugi::xml_node Child(const pugi::xml_node& parent, std::string_view name) {
  return parent.find_child([name](const pugi::xml_node& node) { return IsNamed(node, name); });
}

std::string_view Attribute(const pugi::xml_node& node, std::string_view name) {
  const pugi::xml_attribute found =
      node.find_attribute([name](const pugi::xml_attribute& attribute) { return LocalName(attribute.name()) == name; });
  return found.value();
}

std::optional<unsigned> UnsignedOf(std::string_view text) {
  unsigned number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() && !text.empty() ? std::optional(number)
                                                                                   : std::nullopt;
}

// The text of a string item: of its runs too, but not of what tells its pronunciation.
std::string TextOfItem(const pugi::xml_node& item) {
  std::string text;
  for (const pugi::xml_node child : item.children()) {
    if (IsNamed(child, "t")) {
      text += child.child_value();
    } else if (IsNamed(child, "r")) {
      text += Child(child, "t").child_value();
    }
  }
  return WithLineFeedsOnly(WithoutSheetEscapes(text));
}

// The path of what a part's relation means: from the archive's root, or from the part's own folder.
std::string ResolveTarget(const std::string& part, std::string_view target) {
  std::string path = target.starts_with('/') ? std::string(target.substr(1))
                                             : part.substr(0, part.rfind('/') + 1) + std::string(target);
  for (std::size_t up = path.find("/../"); up != std::string::npos; up = path.find("/../")) {
    const std::size_t begin = up == 0 ? std::string::npos : path.rfind('/', up - 1);
    path.erase(begin == std::string::npos ? 0 : begin + 1, up + 4 - (begin == std::string::npos ? 0 : begin + 1));
  }
  return path;
}

struct Relation {
  std::string type;  // what stands behind the last "/"
  std::string target;
};

class BookReader {
 public:
  BookReader(std::string_view bytes, Progress& progress, const SheetLimits& limits)
      : zip_(bytes), progress_(progress), limits_(limits) {
    if (!zip_.isOpen()) {
      throw SheetError("the file is no xlsx sheet (an old .xls, or one protected by a password?)",
                       u"这个文件不是xlsx表格（可能是旧的xls，或者设了密码）。");
    }
  }

  Sheet ReadFirst();

 private:
  // The document of a part; false when there is none. Throws SheetError for one that cannot be read.
  bool Load(const std::string& part, pugi::xml_document& document, std::string& bytes) const;
  std::map<std::string, Relation> Relations(const std::string& part) const;
  std::string OfficeDocument() const;
  void ReadStyles(const std::string& part);
  void ReadSharedStrings(const std::string& part);
  void ReadRows(const std::string& part);
  void ReadRow(const pugi::xml_node& node, std::size_t row);
  std::string TextOfCell(const pugi::xml_node& cell, std::size_t row, std::size_t column) const;
  std::string TextOfNumber(std::string_view value, std::string_view style, std::size_t row, std::size_t column) const;
  std::size_t ColumnOf(std::string_view reference, std::size_t row, std::size_t next) const;
  [[noreturn]] void FailAt(std::size_t row, std::size_t column, const std::string& english,
                           const std::u16string& chinese) const;

  ZipArchive zip_;
  Progress& progress_;
  SheetLimits limits_;
  DateSystem dates_ = DateSystem::k1900;
  std::vector<bool> isDate_;  // of the cell styles
  std::vector<std::string> strings_;
  std::size_t cells_ = 0;
  Sheet sheet_;
};

[[noreturn]] void FailOn(const std::string& part, const std::string& english, std::u16string_view chinese) {
  throw SheetError("the sheet file's part " + part + ' ' + english,
                   u"表格文件中的" + Decode(Encoding::kUtf8, part) + std::u16string(chinese));
}

bool BookReader::Load(const std::string& part, pugi::xml_document& document, std::string& bytes) const {
  ZipArchive::Entry entry = zip_.Read(part, {limits_.entryBytes, limits_.ratio}, progress_);
  switch (entry.outcome) {
    case ZipArchive::Outcome::kMissing:
      return false;
    case ZipArchive::Outcome::kDamaged:
      FailOn(part, "is damaged", u"已损坏。");
    case ZipArchive::Outcome::kTooLarge:
      FailOn(part, "is too large when unpacked", u"解压后太大，不予打开。");
    case ZipArchive::Outcome::kRead:
      break;
  }
  bytes = std::move(entry.bytes);
  if (!document.load_buffer_inplace(bytes.data(), bytes.size(), kParsing)) {
    FailOn(part, "is no valid XML", u"不是正确的XML。");
  }
  return true;
}

std::map<std::string, Relation> BookReader::Relations(const std::string& part) const {
  const std::size_t folder = part.rfind('/') + 1;
  pugi::xml_document document;
  std::string bytes;
  std::map<std::string, Relation> relations;
  if (Load(part.substr(0, folder) + "_rels/" + part.substr(folder) + ".rels", document, bytes)) {
    for (const pugi::xml_node relation : document.document_element().children()) {
      const std::string_view type = Attribute(relation, "Type");
      relations[std::string(Attribute(relation, "Id"))] = {std::string(type.substr(type.rfind('/') + 1)),
                                                           ResolveTarget(part, Attribute(relation, "Target"))};
    }
  }
  return relations;
}

std::string BookReader::OfficeDocument() const {
  for (const auto& [id, relation] : Relations("")) {
    if (relation.type == "officeDocument") {
      return relation.target;
    }
  }
  FailOn("_rels/.rels", "names no book of sheets", u"没有指出工作簿。");
}

void BookReader::ReadStyles(const std::string& part) {
  pugi::xml_document document;
  std::string bytes;
  if (!Load(part, document, bytes)) {
    return;
  }
  std::map<unsigned, bool> custom;
  for (const pugi::xml_node format : Child(document.document_element(), "numFmts").children()) {
    if (const std::optional<unsigned> number = UnsignedOf(Attribute(format, "numFmtId"))) {
      custom[*number] = IsDateFormat(Attribute(format, "formatCode"));
    }
  }
  for (const pugi::xml_node style : Child(document.document_element(), "cellXfs").children()) {
    const unsigned number = UnsignedOf(Attribute(style, "numFmtId")).value_or(0);
    const auto found = custom.find(number);
    isDate_.push_back(found == custom.end() ? IsDateFormat(number) : found->second);
  }
}

void BookReader::ReadSharedStrings(const std::string& part) {
  pugi::xml_document document;
  std::string bytes;
  if (!Load(part, document, bytes)) {
    return;
  }
  for (const pugi::xml_node item : document.document_element().children()) {
    if (IsNamed(item, "si")) {
      strings_.push_back(TextOfItem(item));
    }
  }
}

void BookReader::FailAt(std::size_t row, std::size_t column, const std::string& english,
                        const std::u16string& chinese) const {
  const std::string cell = SheetCellName(row, column);
  throw SheetError("sheet " + sheet_.name + ", cell " + cell + ": " + english,
                   u"工作表“" + Decode(Encoding::kUtf8, sheet_.name) + u"”的单元格" +
                       std::u16string(cell.begin(), cell.end()) + u"：" + chinese);
}

// From the letters of "AB12", or the next one where the cell does not say.
std::size_t BookReader::ColumnOf(std::string_view reference, std::size_t row, std::size_t next) const {
  std::size_t column = 0;
  for (const char c : reference) {
    if (c < 'A' || c > 'Z' || column > kMostSheetColumns) {
      break;
    }
    column = column * 26 + static_cast<std::size_t>(c - 'A' + 1);
  }
  if (reference.empty()) {
    column = next + 1;
  }
  if (column == 0 || column > kMostSheetColumns) {
    FailAt(row, next, "its place \"" + std::string(reference) + "\" is none", u"位置不对。");
  }
  return column - 1;
}

std::string BookReader::TextOfNumber(std::string_view value, std::string_view style, std::size_t row,
                                     std::size_t column) const {
  const std::size_t index = UnsignedOf(style).value_or(0);
  const bool isDate = index < isDate_.size() && isDate_[index];
  const std::optional<double> number = SheetNumberOf(value);
  if (!number) {
    FailAt(row, column, "\"" + std::string(value.substr(0, 40)) + "\" is no number", u"不是数字。");
  }
  return isDate ? SheetDateText(*number, dates_) : SheetNumberText(*number);
}

std::string BookReader::TextOfCell(const pugi::xml_node& cell, std::size_t row, std::size_t column) const {
  const std::string_view type = Attribute(cell, "t");
  const std::string_view value = Child(cell, "v").child_value();
  if (type == "inlineStr") {
    return TextOfItem(Child(cell, "is"));
  }
  if (type == "str" || type == "e" || type == "d") {
    return WithoutSheetEscapes(value);
  }
  if (value.empty()) {
    return {};
  }
  if (type == "s") {
    const std::optional<unsigned> index = UnsignedOf(value);
    if (!index || *index >= strings_.size()) {
      FailAt(row, column, "its text is not in the file", u"文件中没有它的文字。");
    }
    return strings_[*index];
  }
  if (type == "b") {
    return value == "0" ? "FALSE" : "TRUE";
  }
  return TextOfNumber(value, Attribute(cell, "s"), row, column);
}

void BookReader::ReadRow(const pugi::xml_node& node, std::size_t row) {
  SheetRow read{.row = row, .cells = {}};
  std::size_t next = 0;
  for (const pugi::xml_node cell : node.children()) {
    if (!IsNamed(cell, "c")) {
      continue;
    }
    const std::size_t column = ColumnOf(Attribute(cell, "r"), row, next);
    std::string text = TextOfCell(cell, row, column);
    if (!text.empty()) {
      const std::size_t width = std::max(read.cells.size(), column + 1);
      cells_ += width - read.cells.size();
      if (cells_ > limits_.cells) {
        FailAt(row, column, "the sheet has too many cells", u"工作表的单元格太多，不予打开。");
      }
      read.cells.resize(width);
      read.cells[column] = std::move(text);
    }
    next = column + 1;
  }
  if (!read.cells.empty()) {
    sheet_.rows.push_back(std::move(read));
  }
}

void BookReader::ReadRows(const std::string& part) {
  pugi::xml_document document;
  std::string bytes;
  if (!Load(part, document, bytes)) {
    FailOn(part, "is missing", u"不存在。");
  }
  std::size_t next = 0;
  for (const pugi::xml_node node : Child(document.document_element(), "sheetData").children()) {
    if (!IsNamed(node, "row")) {
      continue;
    }
    const std::string_view number = Attribute(node, "r");
    const std::size_t row = number.empty() ? next : std::size_t{UnsignedOf(number).value_or(0)} - 1;
    if (row >= kMostSheetRows) {
      FailAt(next, 0, "the number of its row is none", u"行号不对。");
    }
    ReadRow(node, row);
    next = row + 1;
    if (next % kRowsAReport == 0) {
      progress_.Report(0, 0);
    }
  }
}

Sheet BookReader::ReadFirst() {
  const std::string book = OfficeDocument();
  pugi::xml_document document;
  std::string bytes;
  if (!Load(book, document, bytes)) {
    FailOn(book, "is missing", u"不存在。");
  }
  const pugi::xml_node root = document.document_element();
  const std::string_view date1904 = Attribute(Child(root, "workbookPr"), "date1904");
  dates_ = date1904 == "1" || date1904 == "true" ? DateSystem::k1904 : DateSystem::k1900;
  const pugi::xml_node first = Child(Child(root, "sheets"), "sheet");
  const std::map<std::string, Relation> relations = Relations(book);
  const auto sheet = relations.find(std::string(Attribute(first, "id")));
  sheet_.name = Attribute(first, "name");
  if (sheet == relations.end()) {
    FailOn(book, "names no sheet", u"没有工作表。");
  }
  for (const auto& [id, relation] : relations) {
    if (relation.type == "styles") {
      ReadStyles(relation.target);
    } else if (relation.type == "sharedStrings") {
      ReadSharedStrings(relation.target);
    }
  }
  ReadRows(sheet->second.target);
  return std::move(sheet_);
}

}  // namespace

Sheet ReadFirstSheet(std::string_view bytes, Progress& progress, const SheetLimits& limits) {
  return BookReader(bytes, progress, limits).ReadFirst();
}

}  // namespace scrivanta
