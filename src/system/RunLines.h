// Lines that name files, folders, programs and addresses, to be opened one by one.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "system/PathLines.h"

namespace scrivanta {

enum class RunLineKind {
  kDocument,  // a file or a folder
  kProgram,   // a program, a script, a shortcut: opening it runs something
  kAddress,   // http://..., mailto:...
  kMissing,   // no such file
};

struct RunLine {
  std::size_t number = 0;  // from 1
  std::filesystem::path target;
  RunLineKind kind = RunLineKind::kDocument;
};

// What the lines name; empty lines are left out. Blanks, quotation marks and the "``" of a list of found files around a
// name are taken off, "%NAME%" becomes the variable's value where there is one, and what does not begin at a root lies
// in the folder, unless that is empty.
std::vector<RunLine> ReadRunLines(std::u16string_view text, const std::filesystem::path& folder,
                                  const VariableLookup& variable);

}  // namespace scrivanta
