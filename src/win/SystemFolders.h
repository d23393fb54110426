// Where the system's own programs and libraries are, and nothing of anybody else's.
#pragma once

#include <filesystem>
#include <string>

namespace scrivanta {

// The folder of the system's libraries and most of its programs.
std::filesystem::path SystemFolder();
// A program of the system by the name of its file, as an absolute path: from the system folder, or from the one around
// it, where a few are.
std::filesystem::path SystemProgram(const std::u16string& fileName);

// From now on libraries are looked for in the system folder only: not beside the program, in the current folder or
// along PATH, where a file of the same name may have been put.
void CloseLibrarySearch();

}  // namespace scrivanta
