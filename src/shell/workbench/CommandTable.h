// One record a command: the menu looks its handler up by the control name, and so do the checks of menu, help and
// tests.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "shell/workbench/Workbench.h"

namespace scrivanta {

// What decides whether a command can be used just now.
struct WorkbenchState {
  bool hasSelection = false;
  bool canUndo = false;
  bool canRedo = false;
  bool canPaste = false;
  bool isReadOnly = false;

  bool operator==(const WorkbenchState&) const = default;
};

struct Command {
  std::function<void(Workbench&)> handler;
  std::function<bool(const WorkbenchState&)> available = nullptr;  // always, when there is none
  std::u16string_view lacks = u"现在不能用";                       // why not, where the state alone does not tell
  // Whether Enter in the document means the command: `lines` are the line of the caret and the one before it.
  std::function<bool(std::u16string_view lines, std::size_t caret)> meantByEnter = nullptr;
};

class CommandTable {
 public:
  // The control name is the menu entry's ("mnuDelEmptyLine"). Throws std::logic_error for a name that is taken.
  void Add(std::string_view controlName, Command command);
  const Command* Find(std::string_view controlName) const;
  bool IsAvailable(std::string_view controlName, const WorkbenchState& state) const;
  // The control name of the command that Enter means, see meantByEnter.
  std::optional<std::string> MeantByEnter(std::u16string_view lines, std::size_t caret) const;
  // Runs a command; whatever it throws becomes one message box, and an Interrupted none. False when there is no such
  // command.
  bool Run(std::string_view controlName, Workbench& workbench) const;

 private:
  std::map<std::string, Command, std::less<>> commands_;
};

}  // namespace scrivanta
