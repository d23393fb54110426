#include "database/DatabaseError.h"

#include "text/DecimalText.h"
#include "text/Encoding.h"

namespace scrivanta {

namespace {

std::string EnglishPlace(const RowRefusal& refusal) {
  std::string place = "line " + std::to_string(refusal.line);
  if (refusal.column > 0) {
    place += ", column " + std::to_string(refusal.column) + " (" + Encode(Encoding::kUtf8, refusal.columnName) + ")";
  }
  return place;
}

std::u16string ChinesePlace(const RowRefusal& refusal) {
  std::u16string place = u"第" + DecimalText(refusal.line) + u"行";
  if (refusal.column > 0) {
    place += u"第" + DecimalText(refusal.column) + u"列（" + refusal.columnName + u"）";
  }
  return place;
}

}  // namespace

BadRow::BadRow(const RowRefusal& refusal)
    : DatabaseError(EnglishPlace(refusal) + ": " + refusal.english + "; nothing has been imported",
                    ChinesePlace(refusal) + u"：" + refusal.chinese + u"\n没有导入任何记录，数据库和原来一样。"),
      line_(refusal.line),
      column_(refusal.column) {}

}  // namespace scrivanta
