#include "database/FrmDatabase.h"

#include <array>
#include <utility>

#include "database/FrmDatabaseControls.h"
#include "text/win/WideText.h"

namespace scrivanta {

namespace {

constexpr std::array kDelimiters = {
    std::pair{Separation::kTab, L"TAB符"},
    std::pair{Separation::kComma, L"逗号"},
    std::pair{Separation::kSemicolon, L"分号"},
    std::pair{Separation::kBlanks, L"空白"},
};

constexpr int kColumnWidth = 90;  // pixels at 96 dots an inch
constexpr int kUsualDpi = 96;

void AddColumn(HWND list, int index, const std::u16string& name, int width) {
  std::wstring text = ToWide(name);
  LVCOLUMNW column = {};
  column.mask = LVCF_TEXT | LVCF_WIDTH;
  column.pszText = text.data();
  column.cx = width;
  SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&column));
}

void SetCell(HWND list, int row, int index, const std::u16string& value) {
  std::wstring text = ToWide(value);
  LVITEMW item = {};
  item.mask = LVIF_TEXT;
  item.iItem = row;
  item.iSubItem = index;
  item.pszText = text.data();
  SendMessageW(list, index == 0 ? LVM_INSERTITEMW : LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

}  // namespace

FrmDatabase::FrmDatabase(WindowHost& host, DatabaseDialog& dialog) : Dialog(host, IDD_FRM_DATABASE), dialog_(dialog) {}

void FrmDatabase::OnInit() {
  for (const auto& [separation, label] : kDelimiters) {
    SendMessageW(Control(CmbDelimiter), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(label));
  }
  SendMessageW(Control(CmbDelimiter), CB_SETCURSEL, 0, 0);
  SendMessageW(Control(LvwRows), LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
  SetChecked(ChkHeader, true);
  dialog_.Start(*this);
}

bool FrmDatabase::OnCommand(int controlId, int notification) {
  switch (controlId) {
    case CmdBrowseSource:
      dialog_.Browse(*this);
      return true;
    case CmdOpenSource:
      dialog_.Open(*this);
      return true;
    case IDOK:  // Enter in a box of one line
      if (GetParent(GetFocus()) == Control(CmbSource)) {
        dialog_.Open(*this);
      }
      return true;
    case LstTables:
      if (notification == LBN_SELCHANGE) {
        dialog_.ChooseTable(*this);
      }
      return true;
    case CmdQuery:
      dialog_.Query(*this);
      return true;
    case CmdToDocument:
      dialog_.ExportToDocument(*this);
      return true;
    case CmdToFile:
      dialog_.ExportToFile(*this);
      return true;
    case CmdFromDocument:
      dialog_.ImportFromDocument(*this);
      return true;
    case CmdFromFile:
      dialog_.ImportFromFile(*this);
      return true;
    case CmdCloseDatabase:
      Close();
      return true;
    default:
      return false;
  }
}

std::u16string FrmDatabase::Source() const {
  return ControlText(CmbSource);
}

void FrmDatabase::SetSource(const std::u16string& source) {
  SetControlText(CmbSource, source);
}

void FrmDatabase::SetSources(const std::vector<std::u16string>& sources) {
  SendMessageW(Control(CmbSource), CB_RESETCONTENT, 0, 0);
  for (const std::u16string& source : sources) {
    SendMessageW(Control(CmbSource), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(source).c_str()));
  }
}

void FrmDatabase::SetTables(const std::vector<std::u16string>& tables) {
  SendMessageW(Control(LstTables), LB_RESETCONTENT, 0, 0);
  for (const std::u16string& table : tables) {
    SendMessageW(Control(LstTables), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(table).c_str()));
  }
}

int FrmDatabase::ChosenTable() const {
  return static_cast<int>(SendMessageW(Control(LstTables), LB_GETCURSEL, 0, 0));
}

std::u16string FrmDatabase::Statement() const {
  return ControlText(TxtQuery);
}

std::u16string FrmDatabase::TargetTable() const {
  return ControlText(TxtTable);
}

void FrmDatabase::SetTargetTable(const std::u16string& table) {
  SetControlText(TxtTable, table);
}

Separation FrmDatabase::Separator() const {
  const LRESULT chosen = SendMessageW(Control(CmbDelimiter), CB_GETCURSEL, 0, 0);
  return kDelimiters[chosen < 0 ? 0 : static_cast<std::size_t>(chosen)].first;
}

bool FrmDatabase::HasHeader() const {
  return IsChecked(ChkHeader);
}

void FrmDatabase::SetRows(const ShownRows& rows) {
  const HWND list = Control(LvwRows);
  SendMessageW(list, WM_SETREDRAW, FALSE, 0);
  SendMessageW(list, LVM_DELETEALLITEMS, 0, 0);
  while (SendMessageW(list, LVM_DELETECOLUMN, 0, 0) != FALSE) {
  }
  const int width = MulDiv(kColumnWidth, static_cast<int>(GetDpiForWindow(list)), kUsualDpi);
  for (std::size_t i = 0; i < rows.columns.size(); ++i) {
    AddColumn(list, static_cast<int>(i), rows.columns[i], width);
  }
  for (std::size_t row = 0; row < rows.rows.size(); ++row) {
    for (std::size_t i = 0; i < rows.rows[row].size(); ++i) {
      SetCell(list, static_cast<int>(row), static_cast<int>(i), rows.rows[row][i]);
    }
  }
  SendMessageW(list, WM_SETREDRAW, TRUE, 0);
  RedrawWindow(list, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);  // the header too
}

void FrmDatabase::SetState(const std::u16string& text) {
  SetControlText(LblState, text);
}

}  // namespace scrivanta
