// What a search across files found, as lines for the document, and files out of such lines.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "search/FileSearch.h"

namespace scrivanta {

// Stands before every path of a list.
inline constexpr std::u16string_view kPathMark = u"``";

// The files that have it, each with the number of matches and the first line that matches; the files that have it not;
// those that could not be searched. Lines end with CR LF.
std::u16string ReportOf(const FileSearchResult& result, std::u16string_view findText);

enum class PathLines {
  kMarked,  // only lines with the mark, the path behind it
  kAll,     // others too, the whole line a path
};
std::vector<std::filesystem::path> PathsOfLines(std::u16string_view text, PathLines which);

}  // namespace scrivanta
