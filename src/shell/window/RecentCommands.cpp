#include "shell/window/RecentCommands.h"

#include <algorithm>

#include "shell/window/MenuTree.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kKey = u"RecentCommands";
constexpr std::string_view kMenuOfLines = "mnuTreat";

bool IsOfLines(std::string_view controlName) {
  std::string_view bar;
  for (const MenuEntry& entry : MenuTree()) {
    if (entry.level == MenuLevel::kBar) {
      bar = entry.controlName;
    } else if (entry.controlName == controlName) {
      return entry.level == MenuLevel::kEntry && bar == kMenuOfLines;
    }
  }
  return false;
}

}  // namespace

std::vector<std::string> RecentCommands::List() const {
  const std::u16string names = settings_.Get(kKey, Store::kRegistry, kWindowSection);
  std::vector<std::string> list;
  for (std::size_t begin = 0; begin < names.size() && list.size() < kMost;) {
    const std::size_t end = std::min(names.find(u' ', begin), names.size());
    std::string name(names.begin() + static_cast<std::ptrdiff_t>(begin),
                     names.begin() + static_cast<std::ptrdiff_t>(end));
    if (IsOfLines(name)) {
      list.push_back(std::move(name));
    }
    begin = end + 1;
  }
  return list;
}

void RecentCommands::Note(std::string_view controlName) {
  if (!IsOfLines(controlName)) {
    return;
  }
  std::vector<std::string> list = List();
  if (!list.empty() && list.front() == controlName) {
    return;
  }
  std::erase(list, controlName);
  list.emplace(list.begin(), controlName);
  list.resize(std::min(list.size(), kMost));
  std::u16string names;
  for (const std::string& name : list) {
    names.append(name.begin(), name.end()).append(u" ");
  }
  settings_.Save(kKey, names, Store::kRegistry, kWindowSection);
}

}  // namespace scrivanta
