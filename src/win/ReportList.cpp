#include "win/ReportList.h"

#include "text/win/WideText.h"

namespace scrivanta {

namespace {

constexpr int kDotsPerInch = 96;  // of a screen that is not scaled

}  // namespace

void ReportList::Attach(HWND control, const std::vector<ReportColumn>& columns) {
  control_ = control;
  SendMessageW(control, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT);
  for (std::size_t index = 0; index < columns.size(); ++index) {
    std::wstring title = ToWide(columns[index].title);
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
    column.pszText = title.data();
    column.cx = MulDiv(columns[index].width, static_cast<int>(GetDpiForSystem()), kDotsPerInch);
    column.iSubItem = static_cast<int>(index);
    SendMessageW(control, LVM_INSERTCOLUMNW, index, reinterpret_cast<LPARAM>(&column));
  }
}

void ReportList::Show(std::vector<ReportRow> rows) {
  rows_ = std::move(rows);
  SendMessageW(control_, LVM_SETITEMCOUNT, rows_.size(), 0);
  InvalidateRect(control_, nullptr, TRUE);
}

std::optional<std::size_t> ReportList::Chosen() const {
  const LRESULT row = SendMessageW(control_, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED);
  return row < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(row));
}

bool ReportList::OnNotify(LPARAM notification) {
  auto* const header = reinterpret_cast<NMHDR*>(notification);
  if (header->hwndFrom != control_ || header->code != LVN_GETDISPINFOW) {
    return false;
  }
  LVITEMW& item = reinterpret_cast<NMLVDISPINFOW*>(notification)->item;
  const auto row = static_cast<std::size_t>(item.iItem);
  const auto column = static_cast<std::size_t>(item.iSubItem);
  if ((item.mask & LVIF_TEXT) != 0 && row < rows_.size() && column < rows_[row].size()) {
    shown_ = ToWide(rows_[row][column]);
    item.pszText = shown_.data();
  }
  return true;
}

}  // namespace scrivanta
