// What a replacement in files would do, place by place, before it is done.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "search/ReplaceRule.h"
#include "text/FileFailure.h"
#include "text/Fingerprint.h"
#include "text/Progress.h"

namespace scrivanta {

// A place as it is shown: the line in which it begins, cut off where it is long.
struct PlannedPlace {
  std::size_t line = 0;  // from 1
  std::u16string before;
  std::u16string after;
};

struct PlannedFile {
  std::filesystem::path path;
  Fingerprint content;      // what was looked at; a file that holds something else is not touched
  std::vector<bool> ticks;  // one a place: whether it is to be replaced
  // The first of the places: of hundreds of thousands not all can be held, or read by anybody.
  std::vector<PlannedPlace> shown;

  std::size_t Ticked() const;
};

struct ReplacePlan {
  std::vector<PlannedFile> files;               // those with places
  std::vector<std::filesystem::path> binaries;  // passed over
  std::vector<FileFailure> failures;            // what was not looked into, and where places must stay, and why
  std::size_t split = 0;                        // places in rich texts that formatting parts: they stay

  std::size_t Places() const;
  std::size_t TickedFiles() const;
  std::size_t TickedPlaces() const;
};

// How many places are shown at the most, in one file and in all.
struct ShownPlaces {
  std::size_t ofFile = 5'000;
  std::size_t inAll = 50'000;
};

// Changes nothing; everything is ticked. Throws Interrupted.
ReplacePlan PlanReplacement(const std::vector<std::filesystem::path>& files, const ReplaceRule& rule,
                            Progress& progress, ShownPlaces most = {});

}  // namespace scrivanta
