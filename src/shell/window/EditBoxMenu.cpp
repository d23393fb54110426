#include "shell/window/EditBoxMenu.h"

#include <array>

#include "shell/window/MenuTree.h"

namespace scrivanta {

namespace {

constexpr std::array<std::string_view, 6> kAlways = {"mnuUndo",  "mnuCut",    "mnuCopy",
                                                     "mnuPaste", "mnudelete", "mnuSelectAll"};

}  // namespace

std::vector<MenuChoice> EditBoxMenu::Choices(const std::vector<std::string>& recentCommands) const {
  std::vector<MenuChoice> choices;
  const auto add = [&](std::string_view name, std::u16string_view caption) {
    choices.push_back({.caption = std::u16string(caption),
                       .run = [run = run, name = std::string(name)] { run(name); },
                       .isAvailable = isAvailable(name),
                       .shortcut = shortcut(name)});
  };
  const auto captionOf = [](std::string_view name) { return MenuEntryOf(*MenuCommandId(name))->caption; };
  for (const std::string_view name : kAlways) {
    add(name, captionOf(name));
  }
  choices.push_back({.caption = u"-"});
  add("mnuFind", isAvailable("mnuCopy") ? u"&F 查找所选文字..." : captionOf("mnuFind"));
  if (!recentCommands.empty()) {
    choices.push_back({.caption = u"-"});
  }
  for (const std::string& name : recentCommands) {
    add(name, captionOf(name));
  }
  return choices;
}

}  // namespace scrivanta
