// What a search across files found, as lines for the document, and files out of such lines.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
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

// The place that a line of such a list tells of.
struct ReportedPlace {
  std::filesystem::path path;
  long long line = 0;  // from 1

  bool operator==(const ReportedPlace&) const = default;
};
// At a position in the text; nothing when no place is told of there.
std::optional<ReportedPlace> PlaceAt(std::u16string_view text, std::size_t position);

enum class PathLines {
  kMarked,  // only lines with the mark, the path behind it
  kAll,     // others too, the whole line a path
};
std::vector<std::filesystem::path> PathsOfLines(std::u16string_view text, PathLines which);

}  // namespace scrivanta
