#include "search/KeptFiles.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "text/AtomicFile.h"
#include "text/Bytes.h"
#include "text/CrashPoint.h"
#include "text/DecimalText.h"
#include "text/ErrorText.h"
#include "text/FileProgress.h"
#include "text/FolderEntries.h"
#include "text/LineReader.h"
#include "text/LineText.h"
#include "text/LineWriter.h"
#include "text/Numbers.h"
#include "text/PathField.h"
#include "text/PlatformFile.h"
#include "text/SameFile.h"
#include "text/Spool.h"

namespace scrivanta {

namespace {

constexpr std::string_view kTitle =
    "Scrivanta replaced files: copy, size and fingerprint before, size and fingerprint after, path";
constexpr std::u16string_view kRunPrefix = u"run-";
std::filesystem::path ListOf(const std::filesystem::path& run) {
  return run / "files.txt";
}

std::unique_ptr<FileClaim> ClaimOf(const std::filesystem::path& folder) {
  std::unique_ptr<FileClaim> claim = FileClaim::Take(folder / "in-use");
  if (!claim) {
    throw ExplainedError(
        "files are just being replaced or put back by another program, or this folder may not be "
        "written: " +
            PathField(folder),
        u"另一个窗口正在替换或还原文件，或者这个文件夹不能写：\n" + TextOfPath(folder));
  }
  return claim;
}

// The numbers of the runs in the folder, the last one at the end.
std::vector<std::size_t> RunsIn(const std::filesystem::path& folder) {
  std::vector<std::size_t> numbers;
  // What cannot be read has no runs.
  static_cast<void>(VisitFolder(folder, [&numbers](const std::filesystem::path& path, FolderEntryKind kind) {
    std::u16string_view digits;
    const std::u16string name = TextOfPath(path.filename());
    if (kind == FolderEntryKind::kFolder && name.starts_with(kRunPrefix)) {
      digits = std::u16string_view(name).substr(kRunPrefix.size());
    }
    if (!digits.empty() && std::ranges::all_of(digits, &IsDigit)) {
      numbers.push_back(static_cast<std::size_t>(LeadingWholeNumber(digits)));
    }
  }));
  std::ranges::sort(numbers);
  return numbers;
}

std::filesystem::path RunFolder(const std::filesystem::path& folder, std::size_t number) {
  return folder / (std::u16string(kRunPrefix) + DecimalText(number));
}

void RemoveRun(const std::filesystem::path& run) {
  std::error_code ignored;
  RemoveFile(ListOf(run));  // the list first: without it a rest is no way back
  std::filesystem::remove_all(run, ignored);
}

// The last one that can be put back; empty when there is none.
std::filesystem::path LastRun(const std::filesystem::path& folder) {
  const std::vector<std::size_t> runs = RunsIn(folder);
  for (auto run = runs.rbegin(); run != runs.rend(); ++run) {
    std::filesystem::path path = RunFolder(folder, *run);
    if (std::error_code error; std::filesystem::exists(ListOf(path), error)) {
      return path;
    }
  }
  return {};
}

std::string FieldsOf(const Fingerprint& fingerprint) {
  return std::to_string(fingerprint.size) + "\t" + std::to_string(fingerprint.hash) + "\t";
}

void WriteList(const std::filesystem::path& run, const std::vector<KeptFile>& files) {
  AtomicFile list(ListOf(run));
  LineWriter writer(list);
  writer.WriteLine(kTitle);
  for (const KeptFile& file : files) {
    writer.WriteLine(PathField(file.copy.filename()) + "\t" + FieldsOf(file.before) + FieldsOf(file.after) +
                     PathField(file.path));
  }
  writer.Flush();
  list.Commit();
}

[[noreturn]] void ThrowNoList(const std::filesystem::path& list, std::uint64_t line) {
  throw ExplainedError("line " + std::to_string(line) + " is none of a list of files as they were: " + PathField(list),
                       u"第" + DecimalText(line) + u"行不是还原文件用的清单：\n" + TextOfPath(list));
}

// Takes the field off the line; nothing when there is no tab behind it.
std::optional<std::string_view> TakeField(std::string_view& line) {
  const std::size_t tab = line.find('\t');
  if (tab == std::string_view::npos) {
    return std::nullopt;
  }
  const std::string_view field = line.substr(0, tab);
  line.remove_prefix(tab + 1);
  return field;
}

bool TakeNumber(std::string_view& line, std::uint64_t& number) {
  const auto field = TakeField(line);
  return field &&
         std::from_chars(field->data(), field->data() + field->size(), number).ptr == field->data() + field->size();
}

std::vector<KeptFile> ReadList(const std::filesystem::path& run) {
  std::vector<KeptFile> files;
  NoProgress progress;
  FileSource source(ListOf(run));
  LineReader reader(source, LineEnds::kCrLfOrLf, progress);
  if (!reader.Next() || reader.line() != kTitle) {
    ThrowNoList(ListOf(run), 1);
  }
  while (reader.Next()) {
    std::string_view line = reader.line();
    const auto name = TakeField(line);
    KeptFile file;
    if (!name || !TakeNumber(line, file.before.size) || !TakeNumber(line, file.before.hash) ||
        !TakeNumber(line, file.after.size) || !TakeNumber(line, file.after.hash)) {
      ThrowNoList(ListOf(run), reader.number());
    }
    file.path = PathOfField(line);
    file.copy = run / PathOfField(*name).filename();
    files.push_back(std::move(file));
  }
  return files;
}

// Writes to two.
class TwoSinks final : public ByteSink {
 public:
  TwoSinks(ByteSink& one, ByteSink& other) : one_(one), other_(other) {}
  void Write(std::string_view bytes) override {
    one_.Write(bytes);
    other_.Write(bytes);
  }

 private:
  ByteSink& one_;
  ByteSink& other_;
};

// The fingerprint of what was copied.
Fingerprint Copy(const std::filesystem::path& from, ByteSink& to) {
  FileSource source(from);
  FingerprintSink content;
  TwoSinks both(to, content);
  CopyBytes(source, both);
  return content.fingerprint();
}

// A file for a copy: what it throws is NotKept.
class CopySink final : public ByteSink {
 public:
  explicit CopySink(const std::filesystem::path& path) {
    Do([&] { file_ = std::make_unique<FileSink>(path); });
  }
  void Write(std::string_view bytes) override {
    Do([&] { file_->Write(bytes); });
  }
  void Close() {
    Do([&] {
      file_->Flush();
      file_->Close();
    });
  }

 private:
  static void Do(const auto& work) {
    try {
      work();
    } catch (const FileError& error) {
      throw NotKept(error);
    }
  }

  std::unique_ptr<FileSink> file_;
};

void Forget(const std::vector<KeptFile>& files) {
  for (const KeptFile& file : files) {
    RemoveFile(file.copy);
  }
}

// Whether the file was changed. Throws FileError, ExplainedError when it must stay.
bool PutBack(const KeptFile& file) {
  const Fingerprint now = FingerprintOfFile(file.path);
  if (now == file.before) {
    return false;
  }
  if (now != file.after) {
    throw ExplainedError("it has been changed since", u"替换以后又变了");
  }
  AtomicFile target(file.path);
  // Seen to be whole before it is put in place.
  if (Copy(file.copy, target) != file.before) {
    throw ExplainedError("its copy is damaged", u"留存的内容已经损坏");
  }
  target.Commit();
  return true;
}

}  // namespace

NotKept::NotKept(const std::exception& reason)
    : ExplainedError(std::string("the files could not be kept as they are, so nothing was replaced: ") + reason.what(),
                     u"替换前的文件存不下来，一个文件也没有替换：\n" + FailureText(reason)) {}

KeepingRun::KeepingRun(const std::filesystem::path& folder) : folder_(folder) {
  try {
    std::filesystem::create_directories(folder);
    claim_ = ClaimOf(folder);
    const std::vector<std::size_t> runs = RunsIn(folder);
    run_ = RunFolder(folder, runs.empty() ? 1 : runs.back() + 1);
    std::filesystem::create_directory(run_);
  } catch (const std::filesystem::filesystem_error& error) {
    throw NotKept(FileError(error.path1(), error.code()));
  }
}

KeepingRun::~KeepingRun() {
  std::vector<KeptFile> replaced;
  std::vector<KeptFile> others;
  for (std::size_t file = 0; file < files_.size(); ++file) {
    (file < replaced_.size() && replaced_[file] ? replaced : others).push_back(files_[file]);
  }
  if (replaced.empty()) {
    RemoveRun(run_);
    return;
  }
  try {
    if (!others.empty()) {
      WriteList(run_, replaced);
      Forget(others);
    }
  } catch (const std::exception&) {
    // The longer list stands: putting back finds that these files are as they were.
  }
}

Fingerprint KeepingRun::Keep(const std::filesystem::path& path) {
  KeptFile file{
      .path = AbsolutePath(path), .before = {}, .after = {}, .copy = run_ / (DecimalText(++copies_) + u".bak")};
  CopySink copy(file.copy);
  file.before = Copy(path, copy);
  copy.Close();
  files_.push_back(file);
  return file.before;
}

void KeepingRun::DropLast() {
  RemoveFile(files_.back().copy);
  files_.pop_back();
}

void KeepingRun::Seal() {
  replaced_.resize(files_.size());
  try {
    WriteList(run_, files_);
  } catch (const FileError& error) {
    throw NotKept(error);
  }
  PassCrashPoint("the files are kept");
}

void KeepingRun::NoteReplaced(std::size_t file) {
  replaced_[file] = true;
  if (removedOthers_) {
    return;
  }
  removedOthers_ = true;
  for (const std::size_t run : RunsIn(folder_)) {
    if (RunFolder(folder_, run) != run_) {
      RemoveRun(RunFolder(folder_, run));
    }
  }
}

bool HasKeptFiles(const std::filesystem::path& folder) {
  return !LastRun(folder).empty();
}

std::vector<KeptFile> FilesKept(const std::filesystem::path& folder) {
  const std::filesystem::path run = LastRun(folder);
  return run.empty() ? std::vector<KeptFile>() : ReadList(run);
}

PutBackOutcome PutBackKept(const std::filesystem::path& folder, Progress& progress) {
  const std::unique_ptr<FileClaim> claim = ClaimOf(folder);
  const std::filesystem::path run = LastRun(folder);
  PutBackOutcome outcome;
  if (run.empty()) {
    return outcome;
  }
  std::vector<KeptFile> done;
  std::vector<KeptFile> rest;
  const std::vector<KeptFile> files = ReadList(run);
  FileProgress fileProgress(progress, files.size());
  auto next = files.begin();
  try {
    while (next != files.end()) {
      fileProgress.Report(0, 0);
      const KeptFile& file = *next;
      try {
        ++(PutBack(file) ? outcome.restored : outcome.unchanged);
        done.push_back(file);
      } catch (const std::runtime_error& error) {
        outcome.failures.push_back(FailureOf(file.path, error));
        rest.push_back(file);
      }
      ++next;
      fileProgress.FileDone();
    }
  } catch (const Interrupted&) {
    outcome.untouched = static_cast<std::size_t>(files.end() - next);
    rest.insert(rest.end(), next, files.end());
  }
  if (rest.empty()) {
    RemoveRun(run);
  } else if (!done.empty()) {
    WriteList(run, rest);
    Forget(done);
  }
  return outcome;
}

}  // namespace scrivanta
