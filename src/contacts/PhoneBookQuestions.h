// What the commands on phone books ask and say.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

#include "contacts/CardFiles.h"
#include "contacts/PhoneBook.h"
#include "shell/workbench/Workbench.h"

namespace scrivanta {

// Shows the duplicates. Whether each group is to become one contact; nothing: the command is called off.
std::optional<bool> AskWhetherToJoin(Prompts& prompts, const std::vector<DuplicateGroup>& duplicates);

// A file to write, with this extension unless another is given. Empty: called off, or the file that is there is to
// stay.
std::filesystem::path AskForTarget(Prompts& prompts, std::u16string_view extension,
                                   const std::filesystem::path& proposal);

// The counts into the status bar; a message where something was not understood.
void ReportPhoneBook(Workbench& workbench, const PhoneBookSurvey& written,
                     const std::vector<NotUnderstoodInFile>& notUnderstood);

}  // namespace scrivanta
