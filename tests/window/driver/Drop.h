// Files as they are dropped on a window.
#pragma once

#include <windows.h>

#include <filesystem>
#include <initializer_list>

namespace scrivanta {

// What the system hands over with WM_DROPFILES when files are dropped; the receiver frees it.
HGLOBAL MakeDrop(std::initializer_list<std::filesystem::path> files);

}  // namespace scrivanta
