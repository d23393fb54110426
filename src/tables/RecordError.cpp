#include "tables/RecordError.h"

#include "text/DecimalText.h"

namespace scrivanta {

RecordError::RecordError(std::uint64_t line, std::size_t column, const std::string& english,
                         const std::u16string& chinese)
    : ExplainedError("line " + std::to_string(line) + ", column " + std::to_string(column) + ": " + english,
                     u"第" + DecimalText(line) + u"行第" + DecimalText(column) + u"列：" + chinese),
      line_(line),
      column_(column) {}

}  // namespace scrivanta
