// The pattern services for other callers than the program's own commands: on a text, or on the file that it names.
//
// A file is decoded, its lines ending with CR LF, and put back in one step, with its own line ends and in its own
// encoding. All throw FileError, Interrupted, and what the service on a text throws.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "regexp/RegExpExtract.h"
#include "regexp/RegExpMarkerFilter.h"
#include "regexp/RegExpReplace.h"

namespace scrivanta {

// Whether an operation writes its result over the file that its source names.
enum class WriteBack { kNo, kYes };

// As ExtractFromText, the results as one text; matches receives them one by one. Only a result that is not empty is
// written back.
std::u16string RegExpExtract(const RegExpEngine& engine, std::u16string_view source, std::u16string_view pattern,
                             const RegExpExtractOptions& options, WriteBack writeBack, Progress& progress,
                             std::vector<std::u16string>* matches = nullptr);

// As ReplaceInText.
std::u16string RegExpReplace(const RegExpEngine& engine, std::u16string_view source, std::u16string_view pattern,
                             std::u16string_view replacement, RegExpReplaceOptions options, WriteBack writeBack,
                             Progress& progress);

// As MarkerFilterText; a file stays as it is.
std::u16string RegExpMarkerFilter(const RegExpEngine& engine, std::u16string_view source, std::u16string_view patterns,
                                  MarkerFilterMode mode, bool ignoreCase, Progress& progress);

// As MultiReplace; a file is always written back.
std::u16string MultiReplaceInFile(std::u16string_view source, std::u16string_view findList,
                                  std::u16string_view replaceList, bool ignoreCase, Progress& progress);

// As MultiReplace, in every line; count grows by the number of places. The lines are as they were when it throws.
void MultiReplaceInList(std::vector<std::u16string>& lines, std::u16string_view findList,
                        std::u16string_view replaceList, bool ignoreCase, std::size_t& count, Progress& progress);

}  // namespace scrivanta
