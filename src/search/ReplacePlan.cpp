#include "search/ReplacePlan.h"

#include <algorithm>
#include <numeric>
#include <optional>

#include "search/PlaceLines.h"
#include "text/DecimalText.h"
#include "text/FileProgress.h"

namespace scrivanta {

namespace {

// Characters shown of the line before a place, of the place, and of the line behind it.
constexpr std::size_t kMostBefore = 20;
constexpr std::size_t kMostOfPlace = 120;
constexpr std::size_t kMostBehind = 60;

PlannedPlace PlaceOf(std::u16string_view text, const TextEdit& edit, LineCounter& lines) {
  const std::size_t end = edit.start + edit.length;
  const std::size_t begin = BeginOfLineAt(text, edit.start);
  const std::u16string head = Ending(text.substr(begin, edit.start - begin), kMostBefore);
  const std::u16string tail = Beginning(text.substr(end, EndOfLineAt(text, end) - end), kMostBehind);
  return {.line = lines.NumberAt(edit.start),
          .before = head + Beginning(text.substr(edit.start, edit.length), kMostOfPlace) + tail,
          .after = head + Beginning(edit.text, kMostOfPlace) + tail};
}

void PlanFile(const std::filesystem::path& path, const ReplaceRule& rule, std::size_t mostShown, ReplacePlan& plan,
              Progress& progress) {
  const std::optional<ReplaceRule::Found> found = rule.FindIn(path, progress);
  if (!found) {
    plan.binaries.push_back(path);
    return;
  }
  if (found->split > 0) {
    plan.split += found->split;
    plan.failures.push_back({path, u"有" + DecimalText(found->split) + u"处被格式代码分开",
                             std::to_string(found->split) + " places are parted by formatting"});
  }
  if (found->edits.empty()) {
    return;
  }
  PlannedFile file{
      .path = path, .content = found->file.content, .ticks = std::vector<bool>(found->edits.size(), true), .shown = {}};
  LineCounter lines(found->file.text);
  for (std::size_t place = 0; place < std::min(found->edits.size(), mostShown); ++place) {
    file.shown.push_back(PlaceOf(found->file.text, found->edits[place], lines));
  }
  plan.files.push_back(std::move(file));
}

}  // namespace

std::size_t PlannedFile::Ticked() const {
  return static_cast<std::size_t>(std::ranges::count(ticks, true));
}

std::size_t ReplacePlan::Places() const {
  return std::accumulate(files.begin(), files.end(), std::size_t{0},
                         [](std::size_t sum, const PlannedFile& file) { return sum + file.ticks.size(); });
}

std::size_t ReplacePlan::TickedFiles() const {
  return static_cast<std::size_t>(
      std::ranges::count_if(files, [](const PlannedFile& file) { return file.Ticked() > 0; }));
}

std::size_t ReplacePlan::TickedPlaces() const {
  return std::accumulate(files.begin(), files.end(), std::size_t{0},
                         [](std::size_t sum, const PlannedFile& file) { return sum + file.Ticked(); });
}

ReplacePlan PlanReplacement(const std::vector<std::filesystem::path>& files, const ReplaceRule& rule,
                            Progress& progress, ShownPlaces most) {
  ReplacePlan plan;
  FileProgress fileProgress(progress, files.size());
  std::size_t left = most.inAll;
  for (const std::filesystem::path& path : files) {
    const std::size_t planned = plan.files.size();
    try {
      PlanFile(path, rule, std::min(most.ofFile, left), plan, fileProgress);
    } catch (const Interrupted&) {
      throw;
    } catch (const std::exception& error) {
      plan.failures.push_back(FailureOf(path, error));
    }
    if (plan.files.size() > planned) {
      left -= plan.files.back().shown.size();
    }
    fileProgress.FileDone();
  }
  return plan;
}

}  // namespace scrivanta
