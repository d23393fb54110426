// The files that take changes of the system back: one a change, kept until the user removes it.
#pragma once

#include <filesystem>
#include <string_view>

#include "shell/workbench/UndoFolder.h"

namespace scrivanta {

// Writes a file that is named after what was changed, and the moment. Its path. Throws FileError.
std::filesystem::path WriteUndoFile(Workbench& workbench, std::u16string_view what, std::u16string_view extension,
                                    std::string_view bytes);

}  // namespace scrivanta
