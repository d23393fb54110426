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

void ReportList::Choose(std::size_t row) {
  LVITEMW item{};
  item.state = LVIS_SELECTED | LVIS_FOCUSED;
  item.stateMask = item.state;
  SendMessageW(control_, LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
}

std::optional<std::size_t> ReportList::Chosen() const {
  const LRESULT row = SendMessageW(control_, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED);
  return row < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(row));
}

void ReportList::ShowTicks(TickOf tickOf, Toggle toggle) {
  tickOf_ = std::move(tickOf);
  toggle_ = std::move(toggle);
  SendMessageW(control_, LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_CHECKBOXES, LVS_EX_CHECKBOXES);
  SendMessageW(control_, LVM_SETCALLBACKMASK, LVIS_STATEIMAGEMASK, 0);
}

void ReportList::Redraw() {
  InvalidateRect(control_, nullptr, FALSE);
}

bool ReportList::OnNotify(LPARAM notification) {
  auto* const header = reinterpret_cast<NMHDR*>(notification);
  if (header->hwndFrom != control_) {
    return false;
  }
  switch (header->code) {
    case LVN_GETDISPINFOW:
      AnswerAsked(reinterpret_cast<NMLVDISPINFOW*>(notification)->item);
      return true;
    case NM_CLICK:
    case NM_DBLCLK:
      ToggleClicked(*reinterpret_cast<NMITEMACTIVATE*>(notification));
      return false;
    case LVN_KEYDOWN:
      if (reinterpret_cast<NMLVKEYDOWN*>(notification)->wVKey == VK_SPACE) {
        ToggleChosen();
      }
      return false;
    default:
      return false;
  }
}

void ReportList::AnswerAsked(LVITEMW& item) {
  const auto row = static_cast<std::size_t>(item.iItem);
  const auto column = static_cast<std::size_t>(item.iSubItem);
  if ((item.mask & LVIF_TEXT) != 0 && row < rows_.size() && column < rows_[row].size()) {
    shown_ = ToWide(rows_[row][column]);
    item.pszText = shown_.data();
  }
  if ((item.mask & LVIF_STATE) != 0 && tickOf_ && row < rows_.size()) {
    constexpr UINT kEmptyBox = 1;
    constexpr UINT kTickedBox = 2;
    item.state = INDEXTOSTATEIMAGEMASK(tickOf_(row) ? kTickedBox : kEmptyBox);
  }
}

void ReportList::ToggleClicked(const NMITEMACTIVATE& click) {
  LVHITTESTINFO hit{};
  hit.pt = click.ptAction;
  SendMessageW(control_, LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
  if (toggle_ && hit.iItem >= 0 && (hit.flags & LVHT_ONITEM) == LVHT_ONITEMSTATEICON) {
    toggle_({static_cast<std::size_t>(hit.iItem)});
  }
}

void ReportList::ToggleChosen() {
  std::vector<std::size_t> rows;
  const auto next = [this](LRESULT from) {
    return SendMessageW(control_, LVM_GETNEXTITEM, static_cast<WPARAM>(from), LVNI_SELECTED);
  };
  for (LRESULT row = next(-1); row >= 0; row = next(row)) {
    rows.push_back(static_cast<std::size_t>(row));
  }
  if (toggle_ && !rows.empty()) {
    toggle_(rows);
  }
}

}  // namespace scrivanta
