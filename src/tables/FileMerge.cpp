#include "tables/FileMerge.h"

#include <algorithm>
#include <system_error>

#include "tables/TextFileCopy.h"
#include "text/FileProgress.h"
#include "text/LineWriter.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

bool IsOneOf(const std::filesystem::path& path, const std::vector<std::filesystem::path>& files) {
  return std::any_of(files.begin(), files.end(), [&](const std::filesystem::path& file) {
    std::error_code error;
    return std::filesystem::equivalent(path, file, error);
  });
}

// Errors of the sink are not those of a file that is read.
class SinkOfMerge final : public ByteSink {
 public:
  explicit SinkOfMerge(ByteSink& sink) : sink_(sink) {}

  void Write(std::string_view bytes) override {
    hasFailed_ = true;
    sink_.Write(bytes);
    hasFailed_ = false;
  }
  bool HasFailed() const noexcept { return hasFailed_; }

 private:
  ByteSink& sink_;
  bool hasFailed_ = false;
};

}  // namespace

FilesToMerge FindFilesToMerge(const MergePlaces& places, Progress& progress) {
  FilesToMerge found;
  const FileFilter filter(places.pattern);
  for (const std::filesystem::path& place : places.places) {
    std::error_code error;
    const bool isFolder = std::filesystem::is_directory(place, error);
    FoundFiles below = WalkFiles({place}, filter, progress, {.subfolders = places.subfolders, .naturalOrder = true});
    for (std::filesystem::path& path : below.files) {
      if (IsOneOf(path, places.targets)) {
        found.targetIsNamed |= !isFolder;
        continue;
      }
      std::u16string title = TextOfPath(isFolder ? path.lexically_relative(place) : path.filename());
      found.files.push_back({std::move(path), std::move(title)});
    }
    found.failures.insert(found.failures.end(), below.failures.begin(), below.failures.end());
  }
  return found;
}

std::vector<FileFailure> MergeTextFiles(const std::vector<FileToMerge>& files, ByteSink& out,
                                        const MergeOptions& options, Progress& progress) {
  std::vector<FileFailure> failures;
  FileProgress fileProgress(progress, files.size());
  SinkOfMerge sink(out);
  LineWriter writer(sink);
  TextFileCopier copier(writer, options.encoding, fileProgress);
  for (const FileToMerge& file : files) {
    try {
      copier.Copy(file.path, [&] {
        if (options.titles) {
          writer.WriteLine(Encode(options.encoding, file.title));
        }
      });
    } catch (const Interrupted&) {
      throw;
    } catch (const std::exception& error) {
      if (sink.HasFailed()) {
        throw;
      }
      failures.push_back(FailureOf(file.path, error));
    }
    fileProgress.FileDone();
  }
  writer.Flush();
  return failures;
}

}  // namespace scrivanta
