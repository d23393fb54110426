#include "tables/FrmConversion.h"

#include "tables/TextChoices.h"
#include "text/win/WideText.h"

namespace scrivanta {

namespace {

constexpr UINT kRefreshPreview = WM_APP + 1;

// Of the height of the window's own font, and with cells of one width.
OwnedFont MakePreviewFont(HWND window) {
  LOGFONTW font{};
  GetObjectW(reinterpret_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof(font), &font);
  font.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
  constexpr std::wstring_view kFace = L"新宋体";
  font.lfFaceName[kFace.copy(font.lfFaceName, LF_FACESIZE - 1)] = L'\0';
  return OwnedFont(CreateFontIndirectW(&font));
}

}  // namespace

void FrmConversion::OnInit() {
  previewFont_ = MakePreviewFont(handle());
  SendMessageW(Control(previewBox_), WM_SETFONT, reinterpret_cast<WPARAM>(previewFont_.get()), TRUE);
  ShowChoices();
  RefreshPreview();
}

bool FrmConversion::OnCommand(int controlId, int notification) {
  // Enter sends IDOK where the focus is in a text box.
  if (controlId == startButton_ || controlId == IDOK) {
    Start();
    Close(IDOK);
    return true;
  }
  if (controlId == IDCANCEL || controlId == previewBox_) {
    return false;
  }
  if (notification == BN_CLICKED && OnButton(controlId)) {
    return true;
  }
  const bool isChange = notification == EN_CHANGE || notification == CBN_EDITCHANGE || notification == CBN_SELCHANGE ||
                        notification == BN_CLICKED;
  if (isChange) {
    RefreshPreview();
  }
  return isChange;
}

std::optional<LRESULT> FrmConversion::OnMessage(UINT message, WPARAM, LPARAM) {
  if (message != kRefreshPreview) {
    return std::nullopt;
  }
  MSG another;
  if (PeekMessageW(&another, handle(), kRefreshPreview, kRefreshPreview, PM_NOREMOVE) == 0) {
    EnableControls();
    SetControlText(previewBox_, Preview());
  }
  return 0;
}

void FrmConversion::FillList(int combo, std::initializer_list<std::u16string_view> items) {
  for (const std::u16string_view item : items) {
    SendMessageW(Control(combo), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(item).c_str()));
  }
  Choose(combo, 0);
}

void FrmConversion::FillWithDelimiters(int combo, std::u16string_view chosen) {
  FillList(combo, {kDelimiterWords[0], kDelimiterWords[1], kDelimiterWords[2], kDelimiterWords[3]});
  SetControlText(combo, chosen);
}

void FrmConversion::FillWithUnits(int combo) {
  FillList(combo, {kWidthUnitWords[0], kWidthUnitWords[1], kWidthUnitWords[2]});
}

int FrmConversion::Chosen(int combo) const {
  return static_cast<int>(SendMessageW(Control(combo), CB_GETCURSEL, 0, 0));
}

void FrmConversion::Choose(int combo, int index) {
  SendMessageW(Control(combo), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

// While a list tells of a choice its text is still the old one, so the preview waits.
void FrmConversion::RefreshPreview() {
  PostMessageW(handle(), kRefreshPreview, 0, 0);
}

}  // namespace scrivanta
