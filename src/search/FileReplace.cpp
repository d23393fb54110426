#include "search/FileReplace.h"

#include <numeric>
#include <optional>

#include "search/KeptFiles.h"
#include "text/AtomicFile.h"
#include "text/ExplainedError.h"
#include "text/FileProgress.h"

namespace scrivanta {

namespace {

// What the file is going to hold. Throws ExplainedError when it is not the one that was looked at any more.
std::string BytesOf(const PlannedFile& file, const ReplaceRule& rule, Progress& progress) {
  std::optional<ReplaceRule::Found> found = rule.FindIn(file.path, progress);
  if (!found || found->file.content != file.content || found->edits.size() != file.ticks.size()) {
    throw ExplainedError("it has been changed since it was looked at", u"预览以后又变了");
  }
  std::size_t place = 0;
  std::erase_if(found->edits, [&](const TextEdit&) { return !file.ticks[place++]; });
  return ReplaceRule::BytesWith(found->file, found->edits);
}

class Replacing {
 public:
  Replacing(const ReplacePlan& plan, const ReplaceRule& rule, const std::filesystem::path& keepIn, Progress& progress)
      : rule_(rule), keeps_(!keepIn.empty()), progress_(progress, plan.TickedFiles() * (keeps_ ? 2 : 1)) {
    for (const PlannedFile& file : plan.files) {
      if (file.Ticked() > 0) {
        files_.push_back(&file);
      }
    }
    if (keeps_ && !files_.empty()) {
      run_.emplace(keepIn);
    }
  }

  FileReplaceOutcome Run() {
    if (run_) {
      DoWithEach([this](const PlannedFile& file) { return Keep(file); });
    }
    if (run_ && !files_.empty()) {
      run_->Seal();
    }
    DoWithEach([this](const PlannedFile& file) { return Replace(file); });
    return std::move(outcome_);
  }

 private:
  // Leaves of the files those with which something is still to be done. After an interrupt that is none.
  void DoWithEach(const auto& work) {
    std::vector<const PlannedFile*> remaining;
    auto next = files_.begin();
    try {
      while (next != files_.end()) {
        progress_.Report(0, 0);
        const PlannedFile& file = **next;
        try {
          if (work(file)) {
            remaining.push_back(&file);
          }
        } catch (const Interrupted&) {
          throw;
        } catch (const NotKept&) {
          throw;
        } catch (const std::exception& error) {
          outcome_.leftOver.push_back(FailureOf(file.path, error));
        }
        ++next;
        progress_.FileDone();
      }
    } catch (const Interrupted&) {
      // What is done is done, and the user must know of it.
      remaining.insert(remaining.end(), next, files_.end());
      for (const PlannedFile* file : remaining) {
        outcome_.leftOver.push_back({file->path, u"中断时还没有替换", "not reached when the work was interrupted"});
      }
      outcome_.untouchedFiles = remaining.size();
      remaining.clear();
    }
    files_ = std::move(remaining);
  }

  bool Keep(const PlannedFile& file) {
    const Fingerprint content = run_->Keep(file.path);
    try {
      const std::string bytes = BytesOf(file, rule_, progress_);
      if (content != file.content) {
        throw ExplainedError("it has been changed since it was looked at", u"预览以后又变了");
      }
      run_->WillBe(FingerprintOf(bytes));
    } catch (const std::exception&) {
      run_->DropLast();
      throw;
    }
    return true;
  }

  bool Replace(const PlannedFile& file) {
    const std::size_t number = number_++;
    ReplaceFileContent(file.path, BytesOf(file, rule_, progress_));
    if (run_) {
      run_->NoteReplaced(number);
    }
    outcome_.changed.push_back({file.path, file.Ticked()});
    return false;
  }

  const ReplaceRule& rule_;
  const bool keeps_;
  FileProgress progress_;
  std::vector<const PlannedFile*> files_;
  std::optional<KeepingRun> run_;  // none: nothing is kept
  std::size_t number_ = 0;         // of the file that is replaced next, as the run counts
  FileReplaceOutcome outcome_;
};

}  // namespace

std::size_t FileReplaceOutcome::Places() const {
  return std::accumulate(changed.begin(), changed.end(), std::size_t{0},
                         [](std::size_t sum, const Changed& file) { return sum + file.places; });
}

FileReplaceOutcome CarryOut(const ReplacePlan& plan, const ReplaceRule& rule, const std::filesystem::path& keepIn,
                            Progress& progress) {
  return Replacing(plan, rule, keepIn, progress).Run();
}

}  // namespace scrivanta
