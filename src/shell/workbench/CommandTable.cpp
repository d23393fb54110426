#include "shell/workbench/CommandTable.h"

#include <algorithm>
#include <stdexcept>

#include "shell/workbench/FailureMessage.h"

namespace scrivanta {

void CommandTable::Add(std::string_view controlName, Command command) {
  if (!commands_.emplace(controlName, std::move(command)).second) {
    throw std::logic_error("the command " + std::string(controlName) + " is registered twice");
  }
}

const Command* CommandTable::Find(std::string_view controlName) const {
  const auto found = commands_.find(controlName);
  return found == commands_.end() ? nullptr : &found->second;
}

bool CommandTable::IsAvailable(std::string_view controlName, const WorkbenchState& state) const {
  const Command* command = Find(controlName);
  return command != nullptr && (!command->available || command->available(state));
}

std::optional<std::string> CommandTable::MeantByEnter(std::u16string_view lines, std::size_t caret) const {
  const auto found = std::ranges::find_if(commands_, [&](const auto& entry) {
    return entry.second.meantByEnter && entry.second.meantByEnter(lines, caret);
  });
  return found == commands_.end() ? std::nullopt : std::optional(found->first);
}

bool CommandTable::Run(std::string_view controlName, Workbench& workbench) const {
  const Command* command = Find(controlName);
  if (command == nullptr) {
    return false;
  }
  try {
    command->handler(workbench);
  } catch (const Interrupted&) {
    return true;  // the user stopped it and knows
  } catch (const std::exception& error) {
    workbench.prompts().Ask(FailureMessage(error));
  }
  return true;
}

}  // namespace scrivanta
