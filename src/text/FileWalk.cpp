#include "text/FileWalk.h"

#include <algorithm>
#include <map>
#include <system_error>

#include "text/Bytes.h"
#include "text/FolderEntries.h"
#include "text/LineText.h"
#include "text/NaturalOrder.h"
#include "text/PlatformFile.h"
#include "text/SameFile.h"
#include "text/UpperCase.h"

namespace scrivanta {

namespace {

bool MatchesPattern(std::u16string_view name, std::u16string_view pattern) {
  std::size_t at = 0;
  std::size_t next = 0;
  std::size_t star = std::u16string_view::npos;  // the last one in the pattern so far
  std::size_t starAt = 0;                        // where it ends in the name, for the time being
  while (at < name.size()) {
    if (next < pattern.size() && pattern[next] == u'*') {
      star = next++;
      starAt = at;
    } else if (next < pattern.size() && (pattern[next] == u'?' || pattern[next] == name[at])) {
      ++next;
      ++at;
    } else if (star != std::u16string_view::npos) {
      next = star + 1;
      at = ++starAt;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of(u'*', next) == std::u16string_view::npos;
}

class Walk {
 public:
  Walk(const FileFilter& filter, const WalkOptions& options, Progress& progress)
      : filter_(filter), options_(options), progress_(progress) {}

  void Add(const std::filesystem::path& place) {
    std::error_code error;
    if (!std::filesystem::is_directory(place, error)) {
      found_.files.push_back(place);
      return;
    }
    // A stack of its own: folders may be nested more deeply than calls.
    std::vector<Folder> folders = {{place}};
    while (!folders.empty()) {
      const Folder folder = folders.back();
      folders.pop_back();
      if (folder.isRead) {
        found_.files.push_back(folder.path);
        continue;
      }
      if (options_.folders) {
        folders.push_back({folder.path, true});
      }
      ReadFolder(folder.path, folders);
      progress_.Report(0, 0);
    }
  }

  FoundFiles Take() { return std::move(found_); }

 private:
  struct Folder {
    std::filesystem::path path;
    bool isRead = false;  // and so is all below it
  };

  void ReadFolder(const std::filesystem::path& folder, std::vector<Folder>& folders) {
    std::vector<std::filesystem::path> files;
    std::vector<std::filesystem::path> below;
    const std::error_code error = VisitFolder(folder, [&](const std::filesystem::path& path, FolderEntryKind kind) {
      progress_.Report(0, 0);
      if (kind == FolderEntryKind::kFolder && options_.subfolders) {
        below.push_back(path);
      } else if (kind == FolderEntryKind::kFile && filter_.Takes(path)) {
        files.push_back(path);
      }
    });
    if (error) {
      found_.failures.push_back(FailureOf(folder, FileError(folder, error)));
    }
    SortByName(files);
    found_.files.insert(found_.files.end(), files.begin(), files.end());
    SortByName(below);
    for (auto path = below.rbegin(); path != below.rend(); ++path) {
      folders.push_back({std::move(*path)});
    }
  }

  void SortByName(std::vector<std::filesystem::path>& paths) const {
    if (options_.naturalOrder) {
      SortNaturally(paths);
    } else {
      std::sort(paths.begin(), paths.end());
    }
  }

  const FileFilter& filter_;
  const WalkOptions& options_;
  Progress& progress_;
  FoundFiles found_;
};

}  // namespace

FileFilter::FileFilter(std::u16string_view patterns) {
  while (!patterns.empty()) {
    const std::size_t end = std::min(patterns.find(u';'), patterns.size());
    const std::u16string_view pattern = TrimSpaces(patterns.substr(0, end));
    if (!pattern.empty()) {
      patterns_.push_back(pattern == u"*.*" ? u"*" : UpperCase(pattern));
    }
    patterns.remove_prefix(std::min(end + 1, patterns.size()));
  }
}

bool FileFilter::Takes(const std::filesystem::path& file) const {
  const std::u16string name = UpperCase(TextOfPath(file.filename()));
  return patterns_.empty() || std::any_of(patterns_.begin(), patterns_.end(),
                                          [&](const std::u16string& pattern) { return MatchesPattern(name, pattern); });
}

FoundFiles WalkFiles(const std::vector<std::filesystem::path>& places, const FileFilter& filter, Progress& progress,
                     const WalkOptions& options) {
  Walk walk(filter, options, progress);
  for (const std::filesystem::path& place : places) {
    walk.Add(place);
  }
  return walk.Take();
}

void DropRepeatedFiles(std::vector<std::filesystem::path>& files) {
  // Only paths that are the same but for the case of letters can be one file, once links are followed.
  std::map<std::u16string, std::vector<std::filesystem::path>> seen;
  std::erase_if(files, [&seen](const std::filesystem::path& file) {
    std::error_code error;
    const std::filesystem::path whole = std::filesystem::canonical(file, error);
    if (error) {
      return false;
    }
    std::vector<std::filesystem::path>& alike = seen[UpperCase(TextOfPath(whole))];
    const bool isRepeated = std::any_of(alike.begin(), alike.end(), [&](const std::filesystem::path& other) {
      return std::filesystem::equivalent(whole, other, error);
    });
    alike.push_back(whole);
    return isRepeated;
  });
}

bool IsFile(const std::filesystem::path& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(path, error);
}

void DropFilesIn(const std::filesystem::path& folder, std::vector<std::filesystem::path>& files) {
  std::filesystem::path absolute = AbsolutePath(folder);
  if (!absolute.has_filename()) {
    absolute = absolute.parent_path();  // it was written with a separator behind it
  }
  std::erase_if(files, [&absolute](const std::filesystem::path& file) {
    const std::filesystem::path inside = AbsolutePath(file);
    return std::mismatch(absolute.begin(), absolute.end(), inside.begin(), inside.end()).first == absolute.end();
  });
}

}  // namespace scrivanta
