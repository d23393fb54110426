#include "shell/window/FrmMainMenuBar.h"

#include <utility>

#include "shell/window/CommandReasons.h"
#include "shell/window/EditBoxMenu.h"
#include "shell/window/FrmMainMenu.h"
#include "shell/window/MenuTree.h"
#include "shell/window/RecentMenu.h"
#include "win/Colours.h"
#include "win/PopupMenu.h"

namespace scrivanta {

namespace {

// Of the entries for the documents used last, behind those of the commands.
constexpr int kFirstRecentId = 50001;

}  // namespace

FrmMainMenuBar::FrmMainMenuBar(WindowHost& host, Settings& settings, const CommandTable& commands,
                               DocumentFile& document, Prompts& prompts, Window window)
    : host_(host),
      commands_(commands),
      document_(document),
      prompts_(prompts),
      surroundings_(std::move(window)),
      keys_(settings),
      recentDocuments_(settings),
      recentCommands_(settings) {}

void FrmMainMenuBar::Create(HWND window) {
  window_ = window;
  SetMenu(window_, BuildMainMenu(keys_).Release());
  host_.colours.DressMenuBar(window_);
  ownFileEntries_ = GetMenuItemCount(FileMenu());
  host_.loop.SetAccelerators(window_, BuildAccelerators(keys_));
}

void FrmMainMenuBar::SetKeys(const KeyMap& keys) {
  keys_ = keys;
  ShowKeys(GetMenu(window_), keys_);
  host_.loop.SetAccelerators(window_, BuildAccelerators(keys_));
}

HMENU FrmMainMenuBar::FileMenu() const {
  return GetSubMenu(GetMenu(window_), 0);
}

void FrmMainMenuBar::Refresh() {
  const WorkbenchState state = surroundings_.state();
  EnableMenuEntries(GetMenu(window_),
                    [&](std::string_view controlName) { return CanRun(commands_, controlName, state); });
  shownState_ = state;
}

void FrmMainMenuBar::Follow() {
  if (shownState_ != surroundings_.state()) {
    Refresh();
  }
}

void FrmMainMenuBar::HandleOpening(HMENU popup) {
  Refresh();
  if (popup == FileMenu()) {
    recentChoices_ = RecentChoices(recentDocuments_, document_, prompts_);
    ShowBehind(popup, ownFileEntries_, recentChoices_, kFirstRecentId);
  }
}

std::u16string FrmMainMenuBar::HintOf(WPARAM selected) const {
  const MenuEntry* const entry = (HIWORD(selected) & MF_POPUP) == 0 ? MenuEntryOf(LOWORD(selected)) : nullptr;
  return entry == nullptr || entry->IsSeparator()
             ? std::u16string()
             : WhyUnavailable(commands_, entry->controlName, surroundings_.state());
}

bool FrmMainMenuBar::IsRecent(int commandId) const {
  return commandId >= kFirstRecentId && commandId < kFirstRecentId + static_cast<int>(recentChoices_.size());
}

void FrmMainMenuBar::RunRecent(int commandId) const {
  // A copy: the list may be made anew while the document asks something.
  const std::function<void()> run = recentChoices_.at(static_cast<std::size_t>(commandId - kFirstRecentId)).run;
  run();
}

void FrmMainMenuBar::OpenInEditBox(HWND box, LPARAM place) const {
  const WorkbenchState state = surroundings_.state();
  const EditBoxMenu menu{
      [&](std::string_view controlName) { return CanRun(commands_, controlName, state); },
      [this](std::string_view controlName) { return keys_.ShownKey(controlName); },
      [this](std::string_view controlName) { surroundings_.onCommand(*MenuCommandId(controlName)); }};
  OpenChoices(window_, PlaceOfContextMenu(box, place), menu.Choices(recentCommands_.List()));
}

}  // namespace scrivanta
