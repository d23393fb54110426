#include "search/FileSearch.h"

#include <algorithm>
#include <optional>

#include "regexp/MultiReplace.h"
#include "search/FileText.h"
#include "search/PlaceLines.h"
#include "text/FileProgress.h"
#include "text/LiteralFinder.h"

namespace scrivanta {

namespace {

// Characters shown of a line that matches, and of those how many at the most before the match.
constexpr std::size_t kLongestLine = 200;
constexpr std::size_t kMostBefore = 100;

// What is to be found, made ready once for all files. A plain text is a list, as it is for replacing.
class Query {
 public:
  Query(const FindState& state, const RegExpEngine& engine) {
    if (state.isRegExp) {
      regExp_ = engine.Compile(state.findText, {.ignoreCase = !state.matchesCase, .multiLine = true});
      return;
    }
    for (const std::u16string& item : ItemsOfList(state.findText)) {
      if (!item.empty()) {
        finders_.emplace_back(item, !state.matchesCase);
      }
    }
    if (finders_.empty()) {
      finders_.emplace_back(state.findText, !state.matchesCase);  // nothing but the sign itself
    }
  }

  // Counts the matches; first is where the first of them begins.
  std::size_t Count(std::u16string_view text, std::size_t& first, Progress& progress) const {
    std::size_t count = 0;
    const auto note = [&](std::size_t place) {
      if (count++ == 0) {
        first = place;
      }
    };
    if (regExp_) {
      regExp_->Scan(
          text, 0,
          [&note](const RegExpMatch& match) {
            note(match.start);
            return true;
          },
          progress);
    } else {
      VisitPlain(text, note, progress);
    }
    return count;
  }

 private:
  // From left to right, none overlapping another.
  void VisitPlain(std::u16string_view text, const auto& visit, Progress& progress) const {
    std::vector<std::size_t> next;  // where each of the texts stands next
    for (const LiteralFinder& finder : finders_) {
      next.push_back(finder.Find(text, 0, progress));
    }
    for (;;) {
      const auto nearest = std::ranges::min_element(next);
      if (*nearest == LiteralFinder::kNotFound) {
        return;
      }
      visit(*nearest);
      const std::size_t end = *nearest + finders_[static_cast<std::size_t>(nearest - next.begin())].length();
      for (std::size_t i = 0; i < next.size(); ++i) {
        if (next[i] < end) {
          next[i] = finders_[i].Find(text, end, progress);
        }
      }
    }
  }

  std::vector<LiteralFinder> finders_;
  std::unique_ptr<RegExp> regExp_;
};

// The line of a place, cut off where it is long.
std::u16string LineAround(std::u16string_view text, std::size_t place) {
  const std::size_t start = BeginOfLineAt(text, place);
  const std::size_t shown = place - start > kMostBefore ? place - kMostBefore : start;
  const std::size_t end = std::min(EndOfLineAt(text, place), shown + kLongestLine);
  return Ending(text.substr(start, place - start), kMostBefore).append(text.substr(place, end - place));
}

void SearchFile(const std::filesystem::path& path, const Query& query, FileSearchResult& result, Progress& progress) {
  const std::optional<FileText> file = ReadFileText(path);
  if (!file) {
    ++result.binaryFiles;
    return;
  }
  const std::u16string_view text = file->text;
  std::size_t first = 0;
  const std::size_t matches = query.Count(text, first, progress);
  if (matches == 0) {
    result.haveNot.push_back(path);
    return;
  }
  result.have.push_back({path, matches, LineCounter(text).NumberAt(first), LineAround(text, first)});
}

}  // namespace

FileSearchResult SearchFiles(const std::vector<std::filesystem::path>& places, const FileFilter& filter,
                             const FindState& state, const RegExpEngine& engine, Progress& progress) {
  const Query query(state, engine);
  FoundFiles found = WalkFiles(places, filter, progress);
  FileSearchResult result;
  result.failures = std::move(found.failures);
  FileProgress fileProgress(progress, found.files.size());
  for (const std::filesystem::path& path : found.files) {
    try {
      SearchFile(path, query, result, fileProgress);
    } catch (const Interrupted&) {
      throw;
    } catch (const std::exception& error) {
      result.failures.push_back(FailureOf(path, error));
    }
    fileProgress.FileDone();
  }
  return result;
}

}  // namespace scrivanta
