#include "system/FileTimesDialog.h"

#include <algorithm>

#include "regexp/RegExpErrors.h"
#include "system/PathLines.h"
#include "system/UndoFiles.h"
#include "text/Bytes.h"
#include "text/DecimalText.h"
#include "text/ExplainedError.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

std::u16string Counted(std::size_t count, std::u16string_view what) {
  return DecimalText(count) + u"个" + std::u16string(what);
}

}  // namespace

FileTimesForm FileTimesDialog::FirstForm() const {
  FileTimesForm form;
  form.places = workbench_.editor().SelectedText();
  if (form.places.empty()) {
    form.places = TextOfPath(workbench_.document().Path());
  }
  form.pattern = u"*.*";
  form.kinds[static_cast<std::size_t>(FileTimeKind::kModified)] = true;
  form.moment = MomentText(workbench_.clock().Now());
  form.namePattern = u"YYYYMMDD_HHMMSS";
  return form;
}

void FileTimesDialog::AddFolder(FileTimesView& view) {
  const std::filesystem::path folder = workbench_.prompts().AskForFolder({.title = u"选择要改变文件日期的文件夹"});
  if (!folder.empty()) {
    view.AddPlace(TextOfPath(folder));
    Forget(view);
  }
}

FileTimesRules FileTimesDialog::RulesOf(const FileTimesForm& form) const {
  FileTimeSource source;
  FileTimesRules rules;
  if (form.source == FileTimesSource::kMoment) {
    const auto moment = ParseMoment(form.moment);
    if (!moment) {
      throw ExplainedError("no moment", u"看不懂这个日期：" + form.moment +
                                            u"\n请写成 2020-01-02 03:04:05，只写日期或只写时间就只改那一半。");
    }
    source = *moment;
  } else if (form.source == FileTimesSource::kOther) {
    source = form.other;
  } else if (form.source == FileTimesSource::kName) {
    rules.name.emplace(form.namePattern);
  }
  if (form.shift.find_first_not_of(u' ') != std::u16string::npos) {
    const auto shift = ParseShift(form.shift);
    if (!shift) {
      throw ExplainedError("no shift",
                           u"看不懂要加减的时间：" + form.shift + u"\n请写成 +1天2小时、-30分、+01:30:00。");
    }
    rules.shift = *shift;
  } else if (form.source == FileTimesSource::kItself) {
    throw ExplainedError("no shift", u"没有写要加减多少时间。");
  }
  for (const FileTimeKind kind : kFileTimeKinds) {
    if (form.kinds[static_cast<std::size_t>(kind)]) {
      rules[kind] = source;
    }
  }
  return rules;
}

void FileTimesDialog::List(FileTimesView& view) {
  Forget(view);
  const FileTimesForm form = view.Form();
  const std::vector<std::filesystem::path> places = PathsOfLines(form.places);
  if (places.empty()) {
    throw ExplainedError("no place", u"没有写文件或文件夹。");
  }
  if (std::find(form.kinds.begin(), form.kinds.end(), true) == form.kinds.end()) {
    throw ExplainedError("no kind", u"创建、修改、访问三个日期，至少选一个。");
  }
  const FileTimesRules rules = RulesOf(form);
  {
    const std::unique_ptr<BusyWork> work = workbench_.StartWork();
    const FoundFiles found = WalkFiles(places, FileFilter(form.pattern), work->progress(),
                                       {.subfolders = form.subfolders, .folders = form.folders});
    plan_ = PlanFileTimes(found, rules, store_, zone_, work->progress());
  }
  ShowPlan(view);
}

void FileTimesDialog::ListUndo(FileTimesView& view) {
  Forget(view);
  const std::filesystem::path file =
      workbench_.prompts().AskForFile({.filter = u"*.txt", .initialFolder = UndoFolder(workbench_.folders())});
  if (file.empty()) {
    return;
  }
  {
    const std::unique_ptr<BusyWork> work = workbench_.StartWork();
    plan_ = PlanUndo(ReadWholeFile(file), store_, work->progress());
  }
  ShowPlan(view);
}

void FileTimesDialog::Forget(FileTimesView& view) {
  plan_ = {};
  view.EnableChange(false);
}

void FileTimesDialog::ShowPlan(FileTimesView& view) {
  std::vector<FileTimesRow> rows;
  for (const FileFailure& failure : plan_.failures) {
    rows.push_back({.before = {}, .after = {}, .path = TextOfPath(failure.path), .remark = failure.reason});
  }
  for (const FileTimesEntry& entry : plan_.entries) {
    rows.push_back(RowOf(entry, {}));
  }
  view.ShowList(rows);
  view.ShowRemark(u"将改变" + Counted(plan_.entries.size(), u"文件") +
                  (plan_.failures.empty() ? u"" : u"，不能改" + Counted(plan_.failures.size(), u"，见表的开头")));
  view.EnableChange(!plan_.entries.empty());
}

void FileTimesDialog::Change(FileTimesView& view) {
  const std::filesystem::path undoFile = WriteUndoFile(workbench_, u"文件日期", u".txt", UndoText(plan_.entries));
  const Answer answer =
      workbench_.prompts().Ask({.text = u"改变表中" + Counted(plan_.entries.size(), u"文件") +
                                        u"的日期？\n要恢复原来的日期，用“撤消”读这个文件：\n" + TextOfPath(undoFile),
                                .buttons = Buttons::kYesNo,
                                .icon = Icon::kQuestion});
  if (answer != Answer::kYes) {
    RemoveFile(undoFile);
    return;
  }
  FileTimesOutcome outcome;
  {
    const std::unique_ptr<BusyWork> work = workbench_.StartWork();
    outcome = ApplyFileTimes(plan_.entries, store_, work->progress());
  }
  std::vector<FileTimesRow> rows;
  for (const FileFailure& failure : outcome.failures) {
    rows.push_back({.before = {}, .after = {}, .path = TextOfPath(failure.path), .remark = failure.reason});
  }
  for (const FileTimesEntry& entry : outcome.done) {
    rows.push_back(RowOf(entry, u"已改"));
  }
  view.ShowList(rows);
  const std::u16string remark =
      std::u16string(outcome.stopped ? u"中途停止，" : u"") + u"已改变" + Counted(outcome.done.size(), u"文件") +
      (outcome.failures.empty() ? u"" : u"，失败" + Counted(outcome.failures.size(), u"，见表的开头"));
  view.ShowRemark(remark);
  workbench_.ShowStatus(remark);
  Forget(view);
}

FileTimesRow FileTimesDialog::RowOf(const FileTimesEntry& entry, std::u16string_view remark) const {
  return {.before = OldTimesText(entry, zone_),
          .after = NewTimesText(entry, zone_),
          .path = TextOfPath(entry.path),
          .remark = std::u16string(remark)};
}

}  // namespace scrivanta
