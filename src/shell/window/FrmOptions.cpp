#include "shell/window/FrmOptions.h"

#include <utility>

#include "shell/window/FrmKeys.h"
#include "shell/window/FrmOptionsControls.h"
#include "text/PlatformFile.h"

namespace scrivanta {

FrmOptions::FrmOptions(WindowHost& host, std::function<HWND()> owner)
    : Dialog(host, IDD_FRM_OPTIONS), owner_(std::move(owner)) {}

std::optional<Options> FrmOptions::Ask(Workbench& workbench, const Options& options) {
  workbench_ = &workbench;
  options_ = options;
  const int result = ShowModal(owner_());
  workbench_ = nullptr;
  return result == CmdOK ? std::optional(options_) : std::nullopt;
}

void FrmOptions::OnInit() {
  SetChecked(ChkNoRet, !options_.wraps);
  SetChecked(ChkEngLish, options_.allEnglish);
  SetToolTip(ChkEngLish, u"勾选后[定位到指定行]速度快，但文中若有中文字符时定位不够准确，故有中文字符时不要勾选");
  SetChecked(ChkRegExpObject, options_.usesRegExpObject);
  SetToolTip(ChkRegExpObject, u"不勾选时使用程序自带的正则表达式，在任何系统上结果都一样，查找时可以中断");
  SetChecked(OptColours0 + static_cast<int>(options_.colours), true);
  SetControlText(TxtDefaultFile, TextOfPath(options_.defaultFile));
  SetControlText(TxtIniFile, TextOfPath(workbench_->folders().iniFile));
  CentreOverOwner();
}

bool FrmOptions::OnCommand(int controlId, int) {
  switch (controlId) {
    case CmdDefaultFile:
      BrowseForDefaultFile();
      return true;
    case CmdKeys:
      if (const std::optional<KeyMap> keys = FrmKeys(host(), options_.keys).Ask(handle())) {
        options_.keys = *keys;
      }
      return true;
    case IDOK:  // Enter
    case CmdOK:
      options_ = {.wraps = !IsChecked(ChkNoRet),
                  .allEnglish = IsChecked(ChkEngLish),
                  .usesRegExpObject = IsChecked(ChkRegExpObject),
                  .defaultFile = PathOfText(ControlText(TxtDefaultFile)),
                  .colours = ChosenColours(),
                  .keys = options_.keys};
      Close(CmdOK);
      return true;
    case CmdQuit:
      Close();
      return true;
    default:
      return false;
  }
}

ColourChoice FrmOptions::ChosenColours() const {
  return IsChecked(OptColours2)   ? ColourChoice::kDark
         : IsChecked(OptColours1) ? ColourChoice::kLight
                                  : ColourChoice::kLikeSystem;
}

void FrmOptions::BrowseForDefaultFile() {
  const std::filesystem::path current = PathOfText(ControlText(TxtDefaultFile));
  const std::filesystem::path chosen =
      workbench_->prompts().AskForFile({.filter = u"*.txt;*.rtf",
                                        .initialFolder = current.parent_path(),
                                        .initialName = TextOfPath(current.filename())});
  if (!chosen.empty()) {
    SetControlText(TxtDefaultFile, TextOfPath(chosen));
  }
}

}  // namespace scrivanta
