#include "system/registry/RegistryDialog.h"

#include <algorithm>

#include "system/UndoFiles.h"
#include "system/registry/RegistryFile.h"
#include "system/registry/RegistrySearch.h"
#include "text/AtomicFile.h"
#include "text/Bytes.h"
#include "text/DecimalText.h"
#include "text/LineText.h"
#include "text/NaturalOrder.h"
#include "text/PathParts.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kLastKey = u"RegistryLastKey";
constexpr std::u16string_view kFirstKey = u"HKEY_CURRENT_USER";
constexpr char16_t kEditorKey[] = u"HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Applets\\Regedit";
constexpr std::size_t kMostFound = 10'000;

void SortValues(std::vector<RegistryValue>& values) {
  std::ranges::sort(
      values, [](const RegistryValue& left, const RegistryValue& right) { return NaturalLess(left.name, right.name); });
}

}  // namespace

std::vector<std::u16string> RegistryDialog::Subkeys(RegistryView& view, const std::u16string& key) const {
  std::vector<std::u16string> names;
  try {
    names = keys_.Subkeys(key);
  } catch (const RegistryError& error) {
    view.ShowRemark(u"打不开 " + key + u"：" + error.reason());
  }
  std::ranges::sort(names, NaturalLess);
  return names;
}

bool RegistryDialog::HasSubkeys(const std::u16string& key) const {
  try {
    return !keys_.Subkeys(key).empty();
  } catch (const RegistryError&) {
    return false;
  }
}

void RegistryDialog::Open(RegistryView& view) {
  std::optional<std::u16string> key = RegistryKeyOf(workbench_.editor().SelectedText());
  if (!key) {
    key = RegistryKeyOf(workbench_.settings().Get(kLastKey));
  }
  try {
    key = key && keys_.Has(*key) ? key : std::nullopt;
  } catch (const RegistryError&) {
    key.reset();
  }
  key_ = key.value_or(std::u16string(kFirstKey));
  view.ShowKey(key_);
  ShowValues(view);
}

void RegistryDialog::Close() {
  workbench_.settings().Save(kLastKey, key_);
}

void RegistryDialog::Choose(RegistryView& view, const std::u16string& key) {
  key_ = key;
  ShowValues(view);
}

void RegistryDialog::GoTo(RegistryView& view, std::u16string_view text) {
  const std::optional<std::u16string> key = RegistryKeyOf(text);
  if (!key) {
    throw ExplainedError("no key", u"注册表的键要写成 HKEY_CURRENT_USER\\Software 这样，HKCU\\Software 也可以。");
  }
  if (!keys_.Has(*key)) {
    throw ExplainedError("no such key", u"注册表里没有这个键：\n" + *key);
  }
  key_ = *key;
  view.ShowKey(key_);
  ShowValues(view);
}

void RegistryDialog::ShowValues(RegistryView& view) {
  rows_.clear();
  std::u16string remark;
  try {
    std::vector<RegistryValue> values = keys_.Values(key_);
    SortValues(values);
    for (RegistryValue& value : values) {
      rows_.push_back({.key = key_, .isKey = false, .value = std::move(value)});
    }
    remark = DecimalText(rows_.size()) + u"个值";
  } catch (const RegistryError& error) {
    remark = u"打不开 " + key_ + u"：" + error.reason();
  }
  view.ShowRows(rows_);
  view.ShowRemark(remark);
}

void RegistryDialog::OpenRow(RegistryView& view, std::size_t row) {
  const RegistryListRow opened = rows_.at(row);
  if (opened.isKey) {
    GoTo(view, opened.key);
  } else {
    AskForValue(
        view, opened.key,
        {.name = opened.value.name, .type = opened.value.type, .data = EditRegistryData(opened.value), .isNew = false});
  }
}

void RegistryDialog::NewValue(RegistryView& view) {
  AskForValue(view, key_, {.name = {}, .type = RegistryType::kText, .data = {}, .isNew = true});
}

void RegistryDialog::AskForValue(RegistryView& view, const std::u16string& key, const RegistryValueForm& form) {
  const auto check = [this, &key](const RegistryValueForm& filled) {
    ParseRegistryData(filled.type, filled.data);
    if (filled.isNew && FindValue(keys_, key, filled.name)) {
      throw ExplainedError("the value is there", u"这个键里已经有这个值：" + ShowRegistryName(filled.name));
    }
  };
  const std::optional<RegistryValueForm> filled = view.AskForValue(form, check);
  // Data that is shown alike need not be alike: what was not touched stays as it is.
  if (filled && (form.isNew || filled->type != form.type || filled->data != form.data)) {
    Change(view,
           {{.action = RegistryAction::kSetValue,
             .key = key,
             .value = {
                 .name = filled->name, .type = filled->type, .bytes = ParseRegistryData(filled->type, filled->data)}}});
  }
}

void RegistryDialog::DeleteValue(RegistryView& view, std::size_t row) {
  const RegistryListRow& deleted = rows_.at(row);
  if (deleted.isKey) {
    Change(view, {{.action = RegistryAction::kDeleteKey, .key = deleted.key}});
  } else {
    Change(view, {{.action = RegistryAction::kDeleteValue, .key = deleted.key, .value = deleted.value}});
  }
}

void RegistryDialog::NewKey(RegistryView& view) {
  const std::u16string name = workbench_.prompts().Input({.prompt = u"新键的名字（可以用 \\ 一次建几层）："});
  if (const std::optional<std::u16string> key = RegistryKeyOf(key_ + u"\\" + name); key && !name.empty()) {
    if (keys_.Has(*key)) {
      throw ExplainedError("the key is there", u"已经有这个键：\n" + *key);
    }
    Change(view, {{.action = RegistryAction::kCreateKey, .key = *key}});
  }
}

void RegistryDialog::DeleteKey(RegistryView& view) {
  if (IsRegistryRoot(key_)) {
    throw ExplainedError("a root", u"不能删除根键。");
  }
  const std::u16string deleted = key_;
  Change(view, {{.action = RegistryAction::kDeleteKey, .key = deleted}});
}

// The old values are on the disk before anything is changed.
void RegistryDialog::Change(RegistryView& view, const std::vector<RegistryChange>& changes) {
  RegistryPlan plan;
  {
    const std::unique_ptr<BusyWork> work = workbench_.StartWork();
    plan = PlanRegistry(keys_, changes, work->progress());
  }
  if (plan.changes.empty()) {
    view.ShowRemark(u"注册表已经是这样，没有要改的");
    return;
  }
  if (!view.Confirm(plan.rows)) {
    return;
  }
  const std::filesystem::path undo = WriteUndoFile(workbench_, u"注册表", u".reg", RegistryFileOf(plan.undo));
  const auto show = [&](const std::u16string& remark) {
    while (!IsRegistryRoot(key_) && !keys_.Has(key_)) {
      key_ = ParentKey(key_);
    }
    view.Refresh(key_);
    view.ShowKey(key_);
    ShowValues(view);
    view.ShowRemark(remark);
  };
  try {
    const std::unique_ptr<BusyWork> work = workbench_.StartWork();
    ApplyRegistry(keys_, plan.changes, work->progress());
  } catch (...) {
    show(u"只改了一部分；“恢复”读 " + TextOfPath(undo.filename()) + u" 可以还原");
    throw;
  }
  show(u"已改变" + DecimalText(plan.changes.size()) + u"处；“恢复”读 " + TextOfPath(undo.filename()) + u" 可以还原");
}

void RegistryDialog::Search(RegistryView& view, const std::u16string& what) {
  if (what.empty()) {
    throw ExplainedError("nothing to look for", u"没有写要找什么。");
  }
  RegistryPlaces found;
  {
    const std::unique_ptr<BusyWork> work = workbench_.StartWork();
    found = SearchRegistry(keys_, key_, what, kMostFound, work->progress());
  }
  rows_.clear();
  for (RegistryPlace& place : found.places) {
    rows_.push_back({.key = std::move(place.key), .isKey = place.isKey, .value = std::move(place.value)});
  }
  view.ShowRows(rows_);
  view.ShowRemark(u"在 " + key_ + u" 里找到" + DecimalText(rows_.size()) + u"处" + (found.isCut ? u"，没有找完" : u"") +
                  (found.unreadable > 0 ? u"，" + DecimalText(found.unreadable) + u"个键打不开" : std::u16string()));
}

void RegistryDialog::Export(RegistryView& view) {
  const std::u16string name(FileNameOf(key_));
  std::filesystem::path chosen =
      workbench_.prompts().AskForFile({.filter = u"*.reg", .initialFolder = {}, .initialName = name + u".reg"});
  if (chosen.empty()) {
    return;
  }
  if (!chosen.has_extension()) {
    chosen += ".reg";
  }
  const std::optional<std::filesystem::path> target = workbench_.document().ConfirmTarget(chosen);
  if (!target) {
    return;
  }
  const std::unique_ptr<BusyWork> work = workbench_.StartWork();
  const std::vector<RegistryChange> content = ContentOfKey(keys_, key_, work->progress());
  ReplaceFileContent(*target, RegistryFileOf(content));
  view.ShowRemark(u"已导出到 " + TextOfPath(*target));
}

void RegistryDialog::Import(RegistryView& view) {
  Read(view, workbench_.document().Path().parent_path());
}

void RegistryDialog::TakeBack(RegistryView& view) {
  Read(view, UndoFolder(workbench_.folders()));
}

void RegistryDialog::Read(RegistryView& view, const std::filesystem::path& initialFolder) {
  const std::filesystem::path file =
      workbench_.prompts().AskForFile({.filter = u"*.reg", .initialFolder = initialFolder});
  if (!file.empty()) {
    Change(view, ReadRegistryFile(ReadWholeFile(file)));
  }
}

void RegistryDialog::OpenInEditor() {
  keys_.Create(kEditorKey);
  keys_.SetValue(kEditorKey, TextValue(u"LastKey", key_));
  workbench_.desktop().RunSystemProgram(u"regedit.exe", u"/m");
}

void RegistryDialog::PutIntoDocument(RegistryView& view) {
  std::u16string lines = u"键\t名称\t类型\t数据\r\n";
  for (const RegistryListRow& row : rows_) {
    lines += row.isKey ? TableLine({row.key})
                       : TableLine({row.key, ShowRegistryName(row.value.name), RegistryTypeName(row.value.type),
                                    ShowRegistryData(row.value)});
  }
  workbench_.editor().ReplaceSelection(lines);
  view.ShowRemark(u"已放入文档" + DecimalText(rows_.size()) + u"行");
}

}  // namespace scrivanta
