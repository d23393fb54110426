// The text that takes a change of file times back.
#include <array>

#include "system/FileTimesChange.h"
#include "text/Encoding.h"
#include "text/ExplainedError.h"
#include "text/LineReader.h"
#include "text/LineWriter.h"
#include "text/PathField.h"

namespace scrivanta {

namespace {

constexpr std::string_view kTitle = "Scrivanta file times: created, modified, accessed (UTC), path";
constexpr std::string_view kStays = "-";
constexpr int kFractionDigits = 7;

// "2020-01-02T03:04:05.1234567Z"
std::string StampOf(const std::optional<FileMoment>& moment) {
  if (!moment) {
    return std::string(kStays);
  }
  const LocalFileMoment utc(moment->time_since_epoch());
  std::string fraction = std::to_string((*moment - std::chrono::floor<std::chrono::seconds>(*moment)).count());
  fraction.insert(0, kFractionDigits - fraction.size(), '0');
  std::string text = Encode(Encoding::kUtf8, MomentText(utc));
  text[text.find(' ')] = 'T';
  return text + "." + fraction + "Z";
}

[[noreturn]] void ThrowNoUndoText(std::uint64_t line) {
  const std::string number = std::to_string(line);
  throw ExplainedError("line " + number + " is none of a text that takes a change of file times back",
                       u"第" + std::u16string(number.begin(), number.end()) + u"行不是撤消文件日期用的文本。");
}

std::optional<FileMoment> MomentOfStamp(std::string_view stamp, std::uint64_t line) {
  if (stamp == kStays) {
    return std::nullopt;
  }
  const std::size_t end = stamp.size() - (stamp.ends_with('Z') ? 1 : 0);
  const auto parts = ParseMoment(Decode(Encoding::kUtf8, stamp.substr(0, end)));
  if (!parts || !parts->date || !parts->time) {
    ThrowNoUndoText(line);
  }
  return FileMoment(parts->AppliedTo({}).time_since_epoch());
}

FileTimesEntry EntryOfLine(std::string_view text, std::uint64_t line) {
  FileTimesEntry entry;
  for (const FileTimeKind kind : kFileTimeKinds) {
    const std::size_t tab = text.find('\t');
    if (tab == std::string_view::npos) {
      ThrowNoUndoText(line);
    }
    entry.changed[kind] = MomentOfStamp(text.substr(0, tab), line);
    text.remove_prefix(tab + 1);
  }
  entry.path = PathOfField(text);
  return entry;
}

}  // namespace

std::string UndoText(const std::vector<FileTimesEntry>& entries) {
  StringSink sink;
  LineWriter writer(sink);
  writer.WriteLine(kTitle);
  for (const FileTimesEntry& entry : entries) {
    std::string line;
    for (const FileTimeKind kind : kFileTimeKinds) {
      line += StampOf(entry.changed[kind] ? entry.old[kind] : std::nullopt) + "\t";
    }
    writer.WriteLine(line + PathField(entry.path));
  }
  writer.Flush();
  return sink.bytes();
}

FileTimesPlan PlanUndo(std::string_view undoText, const FileTimesStore& store, Progress& progress) {
  MemorySource source(undoText);
  LineReader reader(source, LineEnds::kCrLfOrLf, progress);
  if (!reader.Next() || reader.line() != kTitle) {
    ThrowNoUndoText(1);
  }
  FileTimesPlan plan;
  while (reader.Next()) {
    FileTimesEntry entry = EntryOfLine(reader.line(), reader.number());
    try {
      entry.old = store.Read(entry.path);
      plan.entries.push_back(std::move(entry));
    } catch (const FileError& error) {
      plan.failures.push_back(FailureOf(entry.path, error));
    }
  }
  return plan;
}

}  // namespace scrivanta
