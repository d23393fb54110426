#include "shell/window/FrmMainPrompts.h"

#include <array>
#include <utility>
#include <vector>

#include "shell/workbench/FailureMessage.h"
#include "text/Progress.h"
#include "win/FileDialog.h"
#include "win/InputBox.h"
#include "win/MessageBox.h"

namespace scrivanta {

namespace {

struct ButtonSet {
  UINT style;
  std::vector<Answer> answers;  // of the buttons, from left to right
};

ButtonSet ButtonsOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::kOkCancel:
      return {MB_OKCANCEL, {Answer::kOk, Answer::kCancel}};
    case Buttons::kYesNo:
      return {MB_YESNO, {Answer::kYes, Answer::kNo}};
    case Buttons::kYesNoCancel:
      return {MB_YESNOCANCEL, {Answer::kYes, Answer::kNo, Answer::kCancel}};
    case Buttons::kOk:
      break;
  }
  return {MB_OK, {Answer::kOk}};
}

UINT IconStyle(Icon icon) {
  switch (icon) {
    case Icon::kCritical:
      return MB_ICONERROR;
    case Icon::kQuestion:
      return MB_ICONQUESTION;
    case Icon::kWarning:
      return MB_ICONWARNING;
    case Icon::kInformation:
      return MB_ICONINFORMATION;
    case Icon::kNone:
      break;
  }
  return 0;
}

UINT DefaultButtonStyle(const ButtonSet& buttons, Answer wanted) {
  static constexpr std::array<UINT, 3> kStyles = {MB_DEFBUTTON1, MB_DEFBUTTON2, MB_DEFBUTTON3};
  for (std::size_t i = 0; i < buttons.answers.size(); ++i) {
    if (buttons.answers[i] == wanted) {
      return kStyles[i];
    }
  }
  return MB_DEFBUTTON1;
}

Answer AnswerOf(int button, const ButtonSet& buttons) {
  switch (button) {
    case IDOK:
      return Answer::kOk;
    case IDYES:
      return Answer::kYes;
    case IDNO:
      return Answer::kNo;
    default:
      return buttons.answers.back();
  }
}

FileDialogOptions OptionsOf(const FileQuestion& question) {
  FileDialogOptions options;
  options.title = u"KVO请选择文件";
  options.filters = {{u"筛选文件(" + question.filter + u")", question.filter}, {u"All Files(*.*)", u"*.*"}};
  options.initialFolder = question.initialFolder;
  options.initialName = question.initialName;
  return options;
}

Answer ShowMessage(HWND owner, const Message& message) {
  const ButtonSet buttons = ButtonsOf(message.buttons);
  const UINT style = buttons.style | IconStyle(message.icon) | DefaultButtonStyle(buttons, message.defaultAnswer) |
                     (message.systemModal ? MB_SYSTEMMODAL : 0);
  return AnswerOf(ShowMessageBox(owner, message.text, message.title, style), buttons);
}

}  // namespace

// Lives while a box stands. A box disables its owner alone: with a dialog for owner, commands could be given in the
// main window behind the question.
class FrmMainPrompts::Asking {
 public:
  explicit Asking(FrmMainPrompts& prompts)
      : prompts_(prompts), owner_(prompts.owner_()), mainWindow_(GetAncestor(owner_, GA_ROOTOWNER)) {
    ++prompts_.asking_;
    disabled_ = mainWindow_ != owner_ && EnableWindow(mainWindow_, FALSE) == FALSE;
  }
  Asking(const Asking&) = delete;
  Asking& operator=(const Asking&) = delete;
  ~Asking() {
    if (disabled_) {
      EnableWindow(mainWindow_, TRUE);
    }
    --prompts_.asking_;
  }

  HWND owner() const noexcept { return owner_; }

 private:
  FrmMainPrompts& prompts_;
  HWND owner_;
  HWND mainWindow_;
  bool disabled_ = false;
};

Answer FrmMainPrompts::Ask(const Message& message) {
  const Asking asking(*this);
  return ShowMessage(asking.owner(), message);
}

std::u16string FrmMainPrompts::Input(const InputQuestion& question) {
  InputBox box(host_, {.prompt = question.prompt,
                       .title = question.title,
                       .preset = question.preset,
                       .ok = u"确定",
                       .cancel = u"取消",
                       .hidden = question.hidden,
                       .hasFields = question.hasFields,
                       .assistant = question.assistant,
                       .assist = question.assist});
  const Asking asking(*this);
  return box.Ask(asking.owner());
}

std::filesystem::path FrmMainPrompts::AskForFile(const FileQuestion& question) {
  const Asking asking(*this);
  return ShowFileDialog(asking.owner(), OptionsOf(question));
}

std::vector<std::filesystem::path> FrmMainPrompts::AskForFiles(const FileQuestion& question) {
  const Asking asking(*this);
  return ShowMultipleFileDialog(asking.owner(), OptionsOf(question));
}

std::filesystem::path FrmMainPrompts::AskForFolder(const FolderQuestion& question) {
  const Asking asking(*this);
  return ShowFolderDialog(asking.owner(), question.title, question.initialFolder);
}

void ShowFailure(HWND owner, const std::exception_ptr& failure) noexcept {
  try {
    try {
      std::rethrow_exception(failure);
    } catch (const Interrupted&) {
      return;
    } catch (const std::exception& error) {
      ShowMessage(owner, FailureMessage(error));
    }
  } catch (...) {
    // Not even the message could be made. This one takes no memory of ours.
    MessageBoxW(owner, L"操作没有完成，可能内存不足。请先存盘。", L"Scrivanta", MB_OK | MB_ICONERROR);
  }
}

}  // namespace scrivanta
