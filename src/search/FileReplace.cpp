#include "search/FileReplace.h"

#include <memory>
#include <optional>

#include "regexp/MultiReplace.h"
#include "regexp/RegExpReplace.h"
#include "rtf/RtfText.h"
#include "search/FileText.h"
#include "search/FindPlaces.h"
#include "text/AtomicFile.h"
#include "text/FileProgress.h"

namespace scrivanta {

namespace {

class Replacement {
 public:
  Replacement(const FindState& state, const RegExpEngine& engine) : state_(state), engine_(engine) {
    if (state.isRegExp) {
      engine.Compile(state.findText, {});
    } else {
      plain_ = std::make_unique<MultiReplace>(state.findText, state.replacement, !state.matchesCase);
    }
  }

  // Returns the number of places; without any the file is not touched.
  std::size_t ApplyTo(const std::filesystem::path& path, Progress& progress) const {
    std::optional<FileText> file = ReadFileText(path);
    if (!file) {
      return 0;
    }
    std::size_t count = 0;
    std::string bytes;
    if (!file->rtf.empty()) {
      RtfText::Outcome outcome = RtfText(file->rtf).Replace(FindReplacements(file->text, state_, engine_, progress));
      count = outcome.replaced;
      bytes = std::move(outcome.rtf);
    } else {
      count = ReplaceText(*file, progress);
      bytes = count > 0 ? EncodeDocument(file->text, file->format) : std::string();
    }
    if (count > 0) {
      ReplaceFileContent(path, bytes);
    }
    return count;
  }

 private:
  std::size_t ReplaceText(FileText& file, Progress& progress) const {
    if (plain_) {
      return plain_->Apply(file.text, progress);
    }
    std::size_t count = 0;
    const bool keepsLineFeeds = file.format.lineEnds == DocumentLineEnds::kMixed;
    file.text = ReplaceInText(engine_, file.text, state_.findText, state_.replacement,
                              {.ignoreCase = !state_.matchesCase, .keepsLineFeeds = keepsLineFeeds}, progress, &count);
    return count;
  }

  const FindState& state_;
  const RegExpEngine& engine_;
  std::unique_ptr<MultiReplace> plain_;  // null when the find text is a pattern
};

void ReplaceInFile(const std::filesystem::path& path, const Replacement& replacement, FileReplaceOutcome& outcome,
                   Progress& progress) {
  try {
    const std::size_t count = replacement.ApplyTo(path, progress);
    outcome.replaced += count;
    outcome.changedFiles += count > 0 ? 1 : 0;
  } catch (const Interrupted&) {
    throw;
  } catch (const std::exception& error) {
    outcome.failures.push_back(FailureOf(path, error));
  }
}

}  // namespace

FileReplaceOutcome ReplaceInFiles(const std::vector<std::filesystem::path>& files, const FindState& state,
                                  const RegExpEngine& engine, Progress& progress) {
  const Replacement replacement(state, engine);
  FileReplaceOutcome outcome;
  FileProgress fileProgress(progress, files.size());
  std::size_t done = 0;
  try {
    for (const std::filesystem::path& path : files) {
      ReplaceInFile(path, replacement, outcome, fileProgress);
      ++done;
      fileProgress.FileDone();
    }
  } catch (const Interrupted&) {
    // What is done is done, and the user must know of it.
    outcome.untouchedFiles = files.size() - done;
  }
  return outcome;
}

}  // namespace scrivanta
