#include "contacts/ScrivantaSpreadsheet.h"

#include <windows.h>

#include <array>

#include <oleauto.h>

#include "sheets/SheetFormats.h"
#include "text/Encoding.h"
#include "text/win/WideText.h"
#include "win/Automation.h"

namespace scrivanta {

namespace {

constexpr std::array kPrograms = {L"Excel.Application", L"KET.Application"};

std::string TextOfValue(const VARIANT& value) {
  switch (V_VT(&value)) {
    case VT_BSTR:
      return Encode(Encoding::kUtf8, FromWide({V_BSTR(&value), SysStringLen(V_BSTR(&value))}));
    case VT_R8:
      return SheetNumberText(V_R8(&value));
    case VT_DATE:
      return SheetDateText(V_DATE(&value), DateSystem::k1900);
    case VT_CY:
      return SheetNumberText(static_cast<double>(V_CY(&value).int64) / 10000);
    case VT_I4:
      return std::to_string(V_I4(&value));
    case VT_BOOL:
      return V_BOOL(&value) == VARIANT_FALSE ? "FALSE" : "TRUE";
    default:
      return {};
  }
}

// The cells of a range: a table of values, or the value of a single cell.
std::vector<SheetRow> RowsOf(const VARIANT& range) {
  if (V_VT(&range) != (VT_ARRAY | VT_VARIANT)) {
    return {{0, {TextOfValue(range)}}};
  }
  SAFEARRAY* const array = V_ARRAY(&range);
  std::array<LONG, 2> first{};
  std::array<LONG, 2> last{};
  for (UINT i = 0; i < 2; ++i) {
    if (FAILED(SafeArrayGetLBound(array, i + 1, &first[i])) || FAILED(SafeArrayGetUBound(array, i + 1, &last[i]))) {
      return {};
    }
  }
  std::vector<SheetRow> rows;
  for (LONG row = first[0]; row <= last[0]; ++row) {
    SheetRow& read = rows.emplace_back();
    read.row = static_cast<std::size_t>(row - first[0]);
    for (LONG column = first[1]; column <= last[1]; ++column) {
      std::array<LONG, 2> place = {row, column};
      AutomationValue value;
      SafeArrayGetElement(array, place.data(), &value.variant());
      read.cells.push_back(TextOfValue(value.variant()));
    }
  }
  return rows;
}

}  // namespace

std::optional<Sheet> ScrivantaSpreadsheet::ActiveSheet() {
  for (const wchar_t* const name : kPrograms) {
    const AutomationObject program = AutomationObject::Running(name);
    if (program.isNull()) {
      continue;
    }
    const AutomationObject sheet(program.Get(L"ActiveSheet"));
    if (!sheet.isNull()) {
      const AutomationObject range(sheet.Get(L"UsedRange"));
      return Sheet{Encode(Encoding::kUtf8, sheet.Get(L"Name").Text()), RowsOf(range.Get(L"Value").variant())};
    }
  }
  return std::nullopt;
}

}  // namespace scrivanta
