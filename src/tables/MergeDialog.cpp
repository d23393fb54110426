#include "tables/MergeDialog.h"

#include <algorithm>
#include <system_error>

#include "text/AtomicFile.h"
#include "text/DecimalText.h"
#include "text/NaturalOrder.h"
#include "text/PlatformFile.h"

namespace scrivanta {

void MergeDialog::Add(const std::vector<std::filesystem::path>& places, MergeView& view) {
  for (const std::filesystem::path& place : places) {
    if (std::find(places_.begin(), places_.end(), place) == places_.end()) {
      places_.push_back(place);
    }
  }
  SortNaturally(places_);
  Show(view);
}

void MergeDialog::Remove(std::size_t index, MergeView& view) {
  if (index < places_.size()) {
    places_.erase(places_.begin() + static_cast<std::ptrdiff_t>(index));
    Show(view);
  }
}

void MergeDialog::Show(MergeView& view) const {
  std::vector<std::u16string> lines;
  for (const std::filesystem::path& place : places_) {
    lines.push_back(TextOfPath(place));
  }
  view.ShowPlaces(lines);
}

void MergeDialog::Start(MergeView& view) {
  if (places_.empty()) {
    workbench_.prompts().Ask({.text = u"请先添加文件或文件夹。", .icon = Icon::kInformation});
    return;
  }
  MergePlaces places{.places = places_, .pattern = view.Pattern(), .subfolders = view.WithSubfolders(), .targets = {}};
  const MergeOptions options{.titles = view.WithTitles(), .encoding = Encoding::kGbk};
  const bool intoFile = view.IntoFile();
  std::filesystem::path target;
  if (intoFile) {
    if (!AskForTarget(target)) {
      return;
    }
    places.targets.push_back(target);
  }
  FilesToMerge found = Find(places);
  if (found.targetIsNamed) {
    workbench_.prompts().Ask({.text = u"目标文件就在要合并的文件之中，请换一个文件名。", .icon = Icon::kWarning});
    return;
  }
  if (found.files.empty() && found.failures.empty()) {
    workbench_.prompts().Ask({.text = u"没有符合条件的文件。", .icon = Icon::kInformation});
    return;
  }
  view.CloseView();
  const std::vector<FileFailure> failures =
      intoFile ? MergeIntoFile(found, options, target) : MergeIntoDocument(found, options);
  found.failures.insert(found.failures.end(), failures.begin(), failures.end());
  Report(found.files.size() - failures.size(), found.failures);
}

// False when the user has called it off.
bool MergeDialog::AskForTarget(std::filesystem::path& target) {
  target = workbench_.prompts().AskForFile({.initialName = u"合并.txt"});
  std::error_code error;
  return !target.empty() && (!std::filesystem::exists(target, error) ||
                             workbench_.prompts().Ask({.text = TextOfPath(target) + u"\n已存在，是否替换？",
                                                       .buttons = Buttons::kYesNo,
                                                       .icon = Icon::kQuestion,
                                                       .defaultAnswer = Answer::kNo}) == Answer::kYes);
}

FilesToMerge MergeDialog::Find(const MergePlaces& places) {
  const std::unique_ptr<BusyWork> work = workbench_.StartWork();
  return FindFilesToMerge(places, work->progress());
}

std::vector<FileFailure> MergeDialog::MergeIntoDocument(const FilesToMerge& found, MergeOptions options) {
  const std::unique_ptr<BusyWork> work = workbench_.StartWork();
  options.encoding = Encoding::kUtf8;  // shorter, and without a loss
  StringSink text;
  std::vector<FileFailure> failures = MergeTextFiles(found.files, text, options, work->progress());
  workbench_.editor().ReplaceSelection(Decode(options.encoding, text.bytes()));
  return failures;
}

std::vector<FileFailure> MergeDialog::MergeIntoFile(const FilesToMerge& found, const MergeOptions& options,
                                                    const std::filesystem::path& target) {
  const std::unique_ptr<BusyWork> work = workbench_.StartWork();
  AtomicFile file(target);
  std::vector<FileFailure> failures = MergeTextFiles(found.files, file, options, work->progress());
  file.Commit();
  return failures;
}

void MergeDialog::Report(std::size_t files, const std::vector<FileFailure>& failures) {
  const std::u16string count = u"已合并" + DecimalText(files) + u"个文件";
  workbench_.ShowStatus(count);
  if (failures.empty()) {
    return;
  }
  workbench_.prompts().Ask(
      {.text = count + DescribeFailures(u"以下文件或文件夹未能读取：", failures), .icon = Icon::kWarning});
}

}  // namespace scrivanta
