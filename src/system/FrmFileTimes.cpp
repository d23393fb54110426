#include "system/FrmFileTimes.h"

#include "system/FrmFileTimesControls.h"

namespace scrivanta {

namespace {

constexpr std::array kKindBoxes = {ChkCreated, ChkModified, ChkAccessed};
constexpr std::array<const wchar_t*, kFileTimeKinds.size()> kKindNames = {L"创建日期", L"修改日期", L"访问日期"};
// In the order of FileTimesSource.
constexpr std::array kSources = {OptMoment, OptOther, OptName, OptItself};

}  // namespace

FrmFileTimes::FrmFileTimes(WindowHost& host, FileTimesDialog& logic)
    : Dialog(host, IDD_FRM_FILE_TIMES), logic_(logic) {}

void FrmFileTimes::OnInit() {
  for (const wchar_t* name : kKindNames) {
    SendMessageW(Control(CboOther), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name));
  }
  list_.Attach(Control(LstTimes), {{u"原来", 130}, {u"改为", 130}, {u"路径", 230}, {u"备注", 150}});
  SetToolTip(TxtMoment, u"如 2020-01-02 03:04:05；只写日期或只写时间，就只改那一半");
  SetToolTip(TxtNamePattern,
             u"YYYY年 MM月 DD日 HH时 MM分 SS秒，*任意文字，?任意一个字；也可写成%Y%m%d_%H%M%S，或用正则表达式的六个组");
  SetToolTip(TxtShift, u"如 +1天2小时、-30分、+01:30:00");
  ShowForm(logic_.FirstForm());
}

void FrmFileTimes::ShowForm(const FileTimesForm& form) {
  SetControlText(TxtPlaces, form.places);
  SetControlText(TxtFilePattern, form.pattern);
  SetControlText(TxtMoment, form.moment);
  SetControlText(TxtNamePattern, form.namePattern);
  SetChecked(ChkSubfolders, form.subfolders);
  SetChecked(ChkFolders, form.folders);
  for (std::size_t index = 0; index < kKindBoxes.size(); ++index) {
    SetChecked(kKindBoxes[index], form.kinds[index]);
  }
  SetChecked(kSources[static_cast<std::size_t>(form.source)], true);
  SendMessageW(Control(CboOther), CB_SETCURSEL, static_cast<WPARAM>(form.other), 0);
}

bool FrmFileTimes::OnCommand(int controlId, int notification) {
  switch (controlId) {
    case CmdAddFolder:
      logic_.AddFolder(*this);
      return true;
    case CmdListTimes:
    case IDOK:  // Enter in a text box
      logic_.List(*this);
      return true;
    case CmdChangeTimes:
      logic_.Change(*this);
      return true;
    case CmdUndoTimes:
      logic_.ListUndo(*this);
      return true;
    case IDCANCEL:
      return false;
    default:
      if (notification == EN_CHANGE || notification == BN_CLICKED || notification == CBN_SELCHANGE) {
        logic_.Forget(*this);
      }
      return false;
  }
}

std::optional<LRESULT> FrmFileTimes::OnMessage(UINT message, WPARAM, LPARAM lParam) {
  return message == WM_NOTIFY && list_.OnNotify(lParam) ? std::optional<LRESULT>(0) : std::nullopt;
}

FileTimesForm FrmFileTimes::Form() const {
  FileTimesForm form;
  form.places = ControlText(TxtPlaces);
  form.pattern = ControlText(TxtFilePattern);
  form.subfolders = IsChecked(ChkSubfolders);
  form.folders = IsChecked(ChkFolders);
  for (std::size_t index = 0; index < kKindBoxes.size(); ++index) {
    form.kinds[index] = IsChecked(kKindBoxes[index]);
  }
  for (std::size_t index = 0; index < kSources.size(); ++index) {
    if (IsChecked(kSources[index])) {
      form.source = static_cast<FileTimesSource>(index);
    }
  }
  form.moment = ControlText(TxtMoment);
  form.other = static_cast<FileTimeKind>(SendMessageW(Control(CboOther), CB_GETCURSEL, 0, 0));
  form.namePattern = ControlText(TxtNamePattern);
  form.shift = ControlText(TxtShift);
  return form;
}

void FrmFileTimes::AddPlace(const std::u16string& place) {
  const std::u16string places = ControlText(TxtPlaces);
  SetControlText(TxtPlaces, places + (places.empty() || places.ends_with(u"\n") ? u"" : u"\r\n") + place);
}

void FrmFileTimes::ShowList(const std::vector<FileTimesRow>& rows) {
  std::vector<ReportRow> shown;
  for (const FileTimesRow& row : rows) {
    shown.push_back({row.before, row.after, row.path, row.remark});
  }
  list_.Show(std::move(shown));
}

void FrmFileTimes::ShowRemark(const std::u16string& text) {
  SetControlText(LblRemark, text);
}

void FrmFileTimes::EnableChange(bool enable) {
  EnableControl(CmdChangeTimes, enable);
}

}  // namespace scrivanta
