// Changing the times of many files: what each would become, the change, and the text that takes it back.
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "system/MomentText.h"
#include "system/NameDate.h"
#include "text/FileFailure.h"
#include "text/FileTimes.h"
#include "text/FileWalk.h"
#include "text/Progress.h"

namespace scrivanta {

// What one of the times begins with before it is shifted: its own value, parts that are given, or another of the three.
using FileTimeSource = std::variant<std::monostate, PartialMoment, FileTimeKind>;

struct FileTimesRules {
  // One a kind; nothing: this time stays.
  std::array<std::optional<FileTimeSource>, kFileTimeKinds.size()> sources;
  std::optional<NameDate> name = {};  // what the name says takes the place of these parts, before what is given does
  FileTicks shift{};                  // by the clock that knows no summer time

  std::optional<FileTimeSource>& operator[](FileTimeKind kind) { return sources[static_cast<std::size_t>(kind)]; }
  const std::optional<FileTimeSource>& operator[](FileTimeKind kind) const {
    return sources[static_cast<std::size_t>(kind)];
  }
};

// The times to write. Throws ExplainedError when the name holds no date, the file has no such time, or what comes out
// lies outside the years 1601 to 9999.
FileTimes ChangedTimes(const std::filesystem::path& path, const FileTimes& old, const FileTimesRules& rules,
                       const TimeZone& zone);

struct FileTimesEntry {
  std::filesystem::path path;  // from the root on
  FileTimes old;               // all of them
  FileTimes changed;           // those to write
};

struct FileTimesPlan {
  std::vector<FileTimesEntry> entries;  // folders behind what they hold
  std::vector<FileFailure> failures;    // what has no place in the entries, and why
};

// Looks at all files and changes none. Throws Interrupted.
FileTimesPlan PlanFileTimes(const FoundFiles& found, const FileTimesRules& rules, const FileTimesStore& store,
                            const TimeZone& zone, Progress& progress);

struct FileTimesOutcome {
  std::vector<FileTimesEntry> done;
  std::vector<FileFailure> failures;
  bool stopped = false;  // by the user; what is done stays done
};
FileTimesOutcome ApplyFileTimes(const std::vector<FileTimesEntry>& entries, const FileTimesStore& store,
                                Progress& progress);

// A line a file: its old times to 100 nanoseconds in UTC, and its path. UTF-8.
std::string UndoText(const std::vector<FileTimesEntry>& entries);
// The plan that takes a change back. Throws ExplainedError with the number of a line that is none of such a text.
FileTimesPlan PlanUndo(std::string_view undoText, const FileTimesStore& store, Progress& progress);

// The old and the new times that are to be written, several separated by commas, in the order of the kinds.
std::u16string OldTimesText(const FileTimesEntry& entry, const TimeZone& zone);
std::u16string NewTimesText(const FileTimesEntry& entry, const TimeZone& zone);

}  // namespace scrivanta
