// The files that were dropped on a window.
#pragma once

#include <windows.h>

#include <shellapi.h>

#include <filesystem>
#include <vector>

namespace scrivanta {

// Takes them out of the message's record, which is released.
std::vector<std::filesystem::path> TakeDroppedFiles(HDROP drop);

}  // namespace scrivanta
