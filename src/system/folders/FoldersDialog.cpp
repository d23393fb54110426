#include "system/folders/FoldersDialog.h"

#include <algorithm>

#include "system/UndoFiles.h"
#include "system/folders/FileCopies.h"
#include "text/Bytes.h"
#include "text/DecimalText.h"
#include "text/EnvironmentText.h"
#include "text/ExplainedError.h"
#include "text/LineText.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

constexpr char16_t kExtension[] = u".lnk";

ShortcutRow RowOf(const ListedShortcut& listed) {
  const Shortcut& shortcut = listed.shortcut;
  return {.file = TextOfPath(listed.file),
          .target = shortcut.target,
          .arguments = shortcut.arguments,
          .folder = shortcut.folder,
          .icon = IconText(shortcut),
          .hotKey = HotKeyText(shortcut.hotKey),
          .corrected = listed.corrected ? listed.corrected->target : std::u16string(),
          .remark = listed.remark};
}

// Throws ExplainedError for what no shortcut can say.
Shortcut ShortcutOf(const ShortcutForm& form) {
  if (form.file.empty() || form.shortcut.target.empty()) {
    throw ExplainedError("no file or target", u"快捷方式的文件和目标都要写。");
  }
  const std::optional<std::uint16_t> hotKey = ParseHotKey(form.hotKey);
  if (!hotKey) {
    throw ExplainedError("no hot key", u"看不懂这个快捷键：" + form.hotKey + u"\n请写成 Ctrl+Alt+K、Ctrl+Shift+F5。");
  }
  Shortcut shortcut = form.shortcut;
  shortcut.hotKey = *hotKey;
  SetIconText(shortcut, form.icon);
  return shortcut;
}

std::filesystem::path FileOf(const ShortcutForm& form) {
  std::filesystem::path file = PathOfText(form.file);
  if (file.extension() != kExtension) {
    file += kExtension;
  }
  return file;
}

}  // namespace

void FoldersDialog::Open(FoldersView& view) {
  listed_ = folders_.List();
  view.ShowFolders(listed_);
  view.SetPlaces(workbench_.editor().SelectedText());
  view.EnableChange(false);
}

void FoldersDialog::OpenFolder(std::size_t row) const {
  if (!listed_.at(row).path.empty()) {
    workbench_.desktop().OpenWithDefaultProgram(listed_[row].path);
  }
}

void FoldersDialog::ListFolder(FoldersView& view, std::size_t row) {
  if (!listed_.at(row).path.empty()) {
    view.SetPlaces(TextOfPath(listed_[row].path));
    List(view);
  }
}

void FoldersDialog::PutFoldersIntoDocument(FoldersView& view) {
  std::u16string lines = TableLine({u"名称", u"文件夹"});
  for (const SpecialFolder& folder : listed_) {
    lines += TableLine({folder.name, TextOfPath(folder.path)});
  }
  workbench_.editor().ReplaceSelection(lines);
  view.ShowRemark(u"已放入文档" + DecimalText(listed_.size()) + u"行");
}

void FoldersDialog::List(FoldersView& view) {
  const std::vector<std::filesystem::path> places = PathsOfLines(view.Places());
  if (places.empty()) {
    throw ExplainedError("no place", u"没有写快捷方式或文件夹。");
  }
  {
    const std::unique_ptr<BusyWork> work = workbench_.StartWork();
    const FoundFiles found = WalkFiles(places, FileFilter(u"*.lnk"), work->progress(), {.naturalOrder = true});
    list_ = ReadShortcuts(found, store_, EnvironmentText, work->progress());
  }
  const auto missing =
      std::ranges::count_if(list_.shortcuts, [](const ListedShortcut& listed) { return listed.isMissing; });
  Show(view, DecimalText(list_.shortcuts.size()) + u"个快捷方式，" + DecimalText(missing) + u"个的目标不在" +
                 (list_.failures.empty() ? u"" : u"，" + DecimalText(list_.failures.size()) + u"个读不了，见表的末尾"));
}

void FoldersDialog::Show(FoldersView& view, const std::u16string& remark) {
  std::vector<ShortcutRow> rows;
  for (const ListedShortcut& listed : list_.shortcuts) {
    rows.push_back(RowOf(listed));
  }
  for (const FileFailure& failure : list_.failures) {
    rows.push_back({.file = TextOfPath(failure.path),
                    .target = {},
                    .arguments = {},
                    .folder = {},
                    .icon = {},
                    .hotKey = {},
                    .corrected = {},
                    .remark = failure.reason});
  }
  view.ShowShortcuts(rows);
  view.ShowRemark(remark);
  view.EnableChange(CountCorrected(list_) > 0);
}

void FoldersDialog::NewShortcut(FoldersView& view) {
  AskForShortcut(view, {.file = {}, .shortcut = {}, .icon = {}, .hotKey = {}, .isNew = true});
}

void FoldersDialog::EditShortcut(FoldersView& view, std::size_t row) {
  if (row < list_.shortcuts.size()) {
    const ListedShortcut& listed = list_.shortcuts[row];
    AskForShortcut(view, {.file = TextOfPath(listed.file),
                          .shortcut = listed.shortcut,
                          .icon = IconText(listed.shortcut),
                          .hotKey = HotKeyText(listed.shortcut.hotKey),
                          .isNew = false});
  }
}

void FoldersDialog::AskForShortcut(FoldersView& view, const ShortcutForm& form) {
  const auto check = [](const ShortcutForm& filled) {
    ShortcutOf(filled);
    std::error_code error;
    if (filled.isNew && std::filesystem::exists(FileOf(filled), error)) {
      throw ExplainedError("the shortcut is there", u"已经有这个快捷方式：\n" + TextOfPath(FileOf(filled)));
    }
  };
  const std::optional<ShortcutForm> filled = view.AskForShortcut(form, check);
  if (filled) {
    const Shortcut shortcut = ShortcutOf(*filled);
    if (form.isNew || shortcut != form.shortcut) {
      Write(view, {{FileOf(*filled), shortcut}});
    }
  }
}

void FoldersDialog::OpenTarget(std::size_t row) const {
  if (row < list_.shortcuts.size() && !list_.shortcuts[row].shortcut.target.empty()) {
    const std::filesystem::path target =
        PathOfText(WithVariables(list_.shortcuts[row].shortcut.target, EnvironmentText));
    std::error_code error;
    workbench_.desktop().OpenWithDefaultProgram(std::filesystem::is_directory(target, error) ? target
                                                                                             : target.parent_path());
  }
}

void FoldersDialog::FindTargets(FoldersView& view) {
  const std::filesystem::path folder =
      workbench_.prompts().AskForFolder({.title = u"到哪个文件夹（包括其下的子文件夹）里找移走了的目标"});
  if (folder.empty()) {
    return;
  }
  {
    const std::unique_ptr<BusyWork> work = workbench_.StartWork();
    CorrectByName(list_, folder, work->progress());
  }
  Show(view, u"可以修正" + DecimalText(CountCorrected(list_)) + u"个");
}

void FoldersDialog::ReplaceBeginning(FoldersView& view, const std::u16string& from, const std::u16string& to) {
  if (from.empty()) {
    throw ExplainedError("nothing to replace", u"没有写要替换的旧路径。");
  }
  CorrectByBeginning(list_, from, to);
  Show(view, u"可以修正" + DecimalText(CountCorrected(list_)) + u"个");
}

void FoldersDialog::Change(FoldersView& view) {
  std::vector<std::pair<std::filesystem::path, Shortcut>> changes;
  for (const ListedShortcut& listed : list_.shortcuts) {
    if (listed.corrected) {
      changes.emplace_back(listed.file, *listed.corrected);
    }
  }
  const Answer answer =
      workbench_.prompts().Ask({.text = u"改变表中" + DecimalText(changes.size()) + u"个快捷方式？\n“恢复”可以还原。",
                                .buttons = Buttons::kYesNo,
                                .icon = Icon::kQuestion});
  if (answer == Answer::kYes) {
    Write(view, changes);
  }
}

// The files as they were are on the disk before one is changed; what fails is named, and the rest done.
void FoldersDialog::Write(FoldersView& view, const std::vector<std::pair<std::filesystem::path, Shortcut>>& changes) {
  std::vector<FileCopy> copies;
  for (const auto& change : changes) {
    copies.push_back(CopyOfFile(change.first));
  }
  const std::filesystem::path undo = WriteUndoFile(workbench_, u"快捷方式", u".txt", TextOfCopies(copies));
  std::vector<FileFailure> failures;
  for (const auto& [file, shortcut] : changes) {
    try {
      store_.Write(file, shortcut);
    } catch (const FileError& error) {
      failures.push_back(FailureOf(file, error));
    }
  }
  if (!PathsOfLines(view.Places()).empty()) {
    List(view);
  }
  view.ShowRemark(u"已改变" + DecimalText(changes.size() - failures.size()) + u"个；“恢复”读 " +
                  TextOfPath(undo.filename()) + u" 可以还原");
  if (!failures.empty()) {
    workbench_.prompts().Ask({.text = u"有快捷方式没有能够改变。" + DescribeFailures(u"以下文件没有改变：", failures),
                              .icon = Icon::kWarning});
  }
}

void FoldersDialog::TakeBack(FoldersView& view) {
  const std::filesystem::path file =
      workbench_.prompts().AskForFile({.filter = u"*.txt", .initialFolder = UndoFolder(workbench_.folders())});
  if (file.empty()) {
    return;
  }
  const std::vector<FileCopy> copies = ReadCopies(ReadWholeFile(file));
  std::u16string names;
  for (const FileCopy& copy : copies) {
    names += u"\n" + TextOfPath(copy.path) + (copy.bytes ? u"" : u"（删除）");
  }
  const Answer answer = workbench_.prompts().Ask(
      {.text = u"把以下文件恢复成原来的样子？" + names, .buttons = Buttons::kYesNo, .icon = Icon::kQuestion});
  if (answer != Answer::kYes) {
    return;
  }
  for (const FileCopy& copy : copies) {
    PutBack(copy);
  }
  if (!PathsOfLines(view.Places()).empty()) {
    List(view);
  }
  view.ShowRemark(u"已恢复" + DecimalText(copies.size()) + u"个文件");
}

void FoldersDialog::PutShortcutsIntoDocument(FoldersView& view) {
  std::u16string lines = TableLine({u"快捷方式", u"目标", u"参数", u"起始位置", u"图标", u"快捷键", u"备注"});
  for (const ListedShortcut& listed : list_.shortcuts) {
    const ShortcutRow row = RowOf(listed);
    lines += TableLine({row.file, row.target, row.arguments, row.folder, row.icon, row.hotKey, row.remark});
  }
  workbench_.editor().ReplaceSelection(lines);
  view.ShowRemark(u"已放入文档" + DecimalText(list_.shortcuts.size()) + u"行");
}

}  // namespace scrivanta
