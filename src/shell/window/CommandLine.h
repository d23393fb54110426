// The command line of the program: what follows its name.
#pragma once

#include <string>
#include <string_view>

namespace scrivanta {

// The document to open.
struct DocumentArgument {
  std::u16string_view path;  // empty when there is none
  long long line = 0;        // where the caret is to stand, from 1; 0: nobody says where
};

// The path is the whole command line, without the quotes when it stands in quotes. Behind the quotes "/line:12" may
// stand.
DocumentArgument DocumentOf(std::u16string_view commandLine);

}  // namespace scrivanta
