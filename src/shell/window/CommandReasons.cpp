#include "shell/window/CommandReasons.h"

#include <array>

#include "shell/window/MenuTree.h"

namespace scrivanta {

namespace {

struct Want {
  bool WorkbenchState::*missing;
  std::u16string_view reason;
};

constexpr std::array kWants = {Want{&WorkbenchState::hasSelection, u"要先选中文字"},
                               Want{&WorkbenchState::canUndo, u"没有可以撤消的改动"},
                               Want{&WorkbenchState::canRedo, u"没有撤消过的改动可以重做"},
                               Want{&WorkbenchState::canPaste, u"剪贴板上没有可以粘贴的内容"}};

}  // namespace

bool CanRun(const CommandTable& commands, std::string_view controlName, const WorkbenchState& state) {
  return commands.IsAvailable(controlName, state) && !(state.isReadOnly && ChangesDocument(controlName));
}

std::u16string WhyUnavailable(const CommandTable& commands, std::string_view controlName, const WorkbenchState& state) {
  if (CanRun(commands, controlName, state)) {
    return {};
  }
  if (commands.Find(controlName) == nullptr) {
    return u"这个版本还没有这个功能";
  }
  if (state.isReadOnly && ChangesDocument(controlName)) {
    return u"文档是以只读方式打开的，另存为其他文件以后才能改动";
  }
  for (const Want& want : kWants) {
    WorkbenchState granted = state;
    granted.*want.missing = true;
    if (commands.IsAvailable(controlName, granted)) {
      return std::u16string(want.reason);
    }
  }
  return std::u16string(commands.Find(controlName)->lacks);
}

}  // namespace scrivanta
