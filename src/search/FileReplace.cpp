#include "search/FileReplace.h"

#include <memory>
#include <optional>
#include <utility>

#include "regexp/MultiReplace.h"
#include "regexp/RegExpReplace.h"
#include "rtf/RtfText.h"
#include "search/FileText.h"
#include "search/FindPlaces.h"
#include "text/AtomicFile.h"
#include "text/DecimalText.h"
#include "text/FileProgress.h"
#include "text/LineText.h"

namespace scrivanta {

namespace {

struct FileOutcome {
  std::size_t replaced = 0;
  std::size_t split = 0;
  bool isBinary = false;
};

class Replacement {
 public:
  Replacement(const FindState& state, const RegExpEngine& engine) : state_(state), engine_(engine) {
    if (state.isRegExp) {
      engine.Compile(state.findText, {});
    } else {
      pairs_ = MultiReplace::PairUp(state.findText, state.replacement);
      plain_ = std::make_unique<MultiReplace>(pairs_, !state.matchesCase);
    }
  }

  // Where nothing is replaced the file is not touched.
  FileOutcome ApplyTo(const std::filesystem::path& path, Progress& progress) const {
    std::optional<FileText> file = ReadFileText(path);
    if (!file) {
      return {.isBinary = true};
    }
    FileOutcome outcome;
    std::string bytes;
    if (!file->rtf.empty()) {
      outcome = ReplaceRichText(file->rtf, progress);
      bytes = std::move(file->rtf);
    } else {
      outcome.replaced = ReplaceText(*file, progress);
      bytes = outcome.replaced > 0 ? EncodeDocument(file->text, file->format) : std::string();
    }
    if (outcome.replaced > 0) {
      ReplaceFileContent(path, bytes);
    }
    return outcome;
  }

 private:
  std::size_t ReplaceText(FileText& file, Progress& progress) const {
    if (plain_) {
      return plain_->Apply(file.text, progress);
    }
    std::size_t count = 0;
    const bool keepsLineEnds = file.format.lineEnds == DocumentLineEnds::kMixed;
    file.text = ReplaceInText(engine_, file.text, state_.findText, state_.replacement,
                              {.ignoreCase = !state_.matchesCase, .keepsLineFeeds = keepsLineEnds}, progress, &count);
    if (!keepsLineEnds) {
      file.text = WithOnlyFullLineBreaks(file.text);  // as in a document
    }
    return count;
  }

  FileOutcome ReplaceRichText(std::string& rtf, Progress& progress) const {
    FileOutcome outcome;
    if (state_.isRegExp) {
      ReplaceOnce(rtf, state_, outcome, progress);
    }
    FindState state = state_;
    for (const MultiReplace::Pair& pair : pairs_) {
      state.findText = pair.find;
      state.replacement = pair.replacement;
      if (!pair.find.empty()) {
        ReplaceOnce(rtf, state, outcome, progress);
      }
    }
    return outcome;
  }

  void ReplaceOnce(std::string& rtf, const FindState& state, FileOutcome& outcome, Progress& progress) const {
    const RtfText text(rtf);
    RtfText::Outcome once = text.Replace(FindReplacements(text.text(), state, engine_, progress));
    outcome.replaced += once.replaced;
    outcome.split += once.split;
    if (once.replaced > 0) {
      rtf = std::move(once.rtf);
    }
  }

  const FindState& state_;
  const RegExpEngine& engine_;
  // None when the find text is a pattern.
  std::vector<MultiReplace::Pair> pairs_;
  std::unique_ptr<MultiReplace> plain_;
};

void ReplaceInFile(const std::filesystem::path& path, const Replacement& replacement, FileReplaceOutcome& outcome,
                   Progress& progress) {
  try {
    const FileOutcome file = replacement.ApplyTo(path, progress);
    outcome.replaced += file.replaced;
    outcome.changedFiles += file.replaced > 0 ? 1 : 0;
    outcome.split += file.split;
    if (file.isBinary) {
      outcome.leftOver.push_back({path, u"不是文本文件"});
    } else if (file.split > 0) {
      outcome.leftOver.push_back({path, u"有" + DecimalText(file.split) + u"处被格式代码分开"});
    }
  } catch (const Interrupted&) {
    throw;
  } catch (const std::exception& error) {
    outcome.leftOver.push_back(FailureOf(path, error));
  }
}

}  // namespace

FileReplaceOutcome ReplaceInFiles(const std::vector<std::filesystem::path>& files, const FindState& state,
                                  const RegExpEngine& engine, Progress& progress) {
  const Replacement replacement(state, engine);
  FileReplaceOutcome outcome;
  FileProgress fileProgress(progress, files.size());
  auto next = files.begin();
  try {
    while (next != files.end()) {
      ReplaceInFile(*next, replacement, outcome, fileProgress);
      ++next;
      fileProgress.FileDone();
    }
  } catch (const Interrupted&) {
    // What is done is done, and the user must know of it.
    for (; next != files.end(); ++next) {
      outcome.leftOver.push_back({*next, u"中断时还没有替换"});
      ++outcome.untouchedFiles;
    }
  }
  return outcome;
}

}  // namespace scrivanta
