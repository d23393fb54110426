#include "system/FileTimesChange.h"

#include "text/Bytes.h"
#include "text/ExplainedError.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

// What every file system of the platform can hold, and a date of four digits.
constexpr std::chrono::sys_days kFirstDay = std::chrono::year(1601) / 1 / 1;
constexpr std::chrono::sys_days kEnd = std::chrono::year(10'000) / 1 / 1;

FileMoment OldMoment(const FileTimes& old, FileTimeKind kind) {
  if (!old[kind]) {
    throw ExplainedError("the file system keeps no such time", u"文件系统没有记录这个时间");
  }
  return *old[kind];
}

FileMoment ChangedMoment(const FileTimes& old, FileTimeKind kind, const FileTimeSource& source,
                         const PartialMoment& byName, const TimeZone& zone) {
  const auto* const other = std::get_if<FileTimeKind>(&source);
  const FileMoment from = OldMoment(old, other != nullptr ? *other : kind);
  const auto* const given = std::get_if<PartialMoment>(&source);
  const PartialMoment parts = given != nullptr ? *given : PartialMoment();
  if (byName == PartialMoment() && parts == PartialMoment()) {
    return from;  // not by way of the local time: there is an hour in autumn that it has twice
  }
  return zone.FromLocal(parts.AppliedTo(byName.AppliedTo(zone.ToLocal(from))));
}

template <typename Moment>
std::u16string JoinedText(const FileTimesEntry& entry, const TimeZone& zone, const Moment& momentOf) {
  std::u16string text;
  for (const FileTimeKind kind : kFileTimeKinds) {
    if (entry.changed[kind]) {
      const std::optional<FileMoment>& moment = momentOf(kind);
      text += text.empty() ? u"" : u",";
      text += moment ? MomentText(zone.ToLocal(*moment)) : u"-";
    }
  }
  return text;
}

std::filesystem::path Absolute(const std::filesystem::path& path) {
  std::error_code error;
  const std::filesystem::path absolute = std::filesystem::absolute(path, error);
  return error ? path : absolute;
}

}  // namespace

FileTimes ChangedTimes(const std::filesystem::path& path, const FileTimes& old, const FileTimesRules& rules,
                       const TimeZone& zone) {
  PartialMoment byName;
  if (rules.name) {
    const auto found = rules.name->In(TextOfPath(path.filename()));
    if (!found) {
      throw ExplainedError("the name holds no date of this pattern", u"文件名中没有符合格式的日期");
    }
    byName = *found;
  }
  FileTimes changed;
  for (const FileTimeKind kind : kFileTimeKinds) {
    if (rules[kind]) {
      changed[kind] = ChangedMoment(old, kind, *rules[kind], byName, zone) + rules.shift;
      if (*changed[kind] < kFirstDay || *changed[kind] >= kEnd) {
        throw ExplainedError("the new time is not in the years 1601 to 9999", u"新日期不在1601年至9999年之间");
      }
    }
  }
  return changed;
}

FileTimesPlan PlanFileTimes(const FoundFiles& found, const FileTimesRules& rules, const FileTimesStore& store,
                            const TimeZone& zone, Progress& progress) {
  FileTimesPlan plan{.entries = {}, .failures = found.failures};
  for (const std::filesystem::path& file : found.files) {
    progress.Report(plan.entries.size(), found.files.size());
    try {
      FileTimesEntry entry{.path = Absolute(file), .old = store.Read(file), .changed = {}};
      entry.changed = ChangedTimes(file, entry.old, rules, zone);
      plan.entries.push_back(std::move(entry));
    } catch (const std::runtime_error& error) {
      plan.failures.push_back(FailureOf(file, error));
    }
  }
  return plan;
}

FileTimesOutcome ApplyFileTimes(const std::vector<FileTimesEntry>& entries, const FileTimesStore& store,
                                Progress& progress) {
  FileTimesOutcome outcome;
  try {
    for (const FileTimesEntry& entry : entries) {
      progress.Report(outcome.done.size() + outcome.failures.size(), entries.size());
      try {
        store.Write(entry.path, entry.changed);
        outcome.done.push_back(entry);
      } catch (const FileError& error) {
        outcome.failures.push_back(FailureOf(entry.path, error));
      }
    }
  } catch (const Interrupted&) {
    outcome.stopped = true;
  }
  return outcome;
}

std::u16string OldTimesText(const FileTimesEntry& entry, const TimeZone& zone) {
  return JoinedText(
      entry, zone, [&entry](FileTimeKind kind) -> const auto& { return entry.old[kind]; });
}

std::u16string NewTimesText(const FileTimesEntry& entry, const TimeZone& zone) {
  return JoinedText(
      entry, zone, [&entry](FileTimeKind kind) -> const auto& { return entry.changed[kind]; });
}

}  // namespace scrivanta
