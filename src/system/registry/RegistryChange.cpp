#include "system/registry/RegistryChange.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "system/registry/RegistryData.h"
#include "text/DecimalText.h"
#include "text/UpperCase.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kNothing = u"（没有）";

std::u16string Shown(const std::optional<RegistryValue>& value) {
  return value ? RegistryTypeName(value->type) + u"  " + ShowRegistryData(*value) : std::u16string(kNothing);
}

// The first of the keys above that is not there, or the key itself.
std::u16string FirstMissing(const RegistryKeys& keys, const std::u16string& key) {
  std::u16string missing = key;
  while (!IsRegistryRoot(missing) && !keys.Has(ParentKey(missing))) {
    missing = ParentKey(missing);
  }
  return missing;
}

class Planner {
 public:
  Planner(const RegistryKeys& keys, Progress& progress) : keys_(keys), progress_(progress) {}

  void Add(const RegistryChange& change) {
    const bool isThere = keys_.Has(change.key);
    switch (change.action) {
      case RegistryAction::kDeleteKey:
        if (isThere) {
          DeleteKey(change);
        }
        return;
      case RegistryAction::kCreateKey:
        if (!isThere || IsDeletedBefore(change.key)) {
          CreateKey(change, isThere);
        }
        return;
      case RegistryAction::kSetValue:
      case RegistryAction::kDeleteValue:
        ChangeValue(change, isThere);
        return;
    }
  }

  RegistryPlan Take() {
    // The last change is taken back first.
    std::reverse(undo_.begin(), undo_.end());
    for (std::vector<RegistryChange>& steps : undo_) {
      std::move(steps.begin(), steps.end(), std::back_inserter(plan_.undo));
    }
    return std::move(plan_);
  }

 private:
  bool IsDeletedBefore(const std::u16string& key) const {
    return std::ranges::any_of(deleted_, [&key](const std::u16string& deleted) { return IsInKey(key, deleted); });
  }

  void Take(const RegistryChange& change, RegistryChangeRow row, std::vector<RegistryChange> undo) {
    plan_.changes.push_back(change);
    plan_.rows.push_back(std::move(row));
    undo_.push_back(std::move(undo));
  }

  void DeleteKey(const RegistryChange& change) {
    std::vector<RegistryChange> content = ContentOfKey(keys_, change.key, progress_);
    const auto valueCount =
        std::ranges::count(content, RegistryAction::kSetValue, [](const RegistryChange& part) { return part.action; });
    const std::size_t keyCount = content.size() - static_cast<std::size_t>(valueCount);
    deleted_.push_back(change.key);
    Take(change,
         {.key = change.key,
          .name = {},
          .before = DecimalText(keyCount) + u"个键，" + DecimalText(valueCount) + u"个值",
          .after = u"（删除）"},
         std::move(content));
  }

  void CreateKey(const RegistryChange& change, bool isThere) {
    std::vector<RegistryChange> undo;
    if (!isThere) {
      undo.push_back({.action = RegistryAction::kDeleteKey, .key = FirstMissing(keys_, change.key)});
    }
    Take(change,
         {.key = change.key, .name = {}, .before = std::u16string(isThere ? u"" : kNothing), .after = u"（新键）"},
         std::move(undo));
  }

  void ChangeValue(const RegistryChange& change, bool isThere) {
    const std::optional<RegistryValue> old =
        isThere ? FindValue(keys_, change.key, change.value.name) : std::optional<RegistryValue>();
    const bool sets = change.action == RegistryAction::kSetValue;
    const std::optional<RegistryValue> wanted = sets ? std::optional(change.value) : std::nullopt;
    const bool isSame = old.has_value() == sets && (!old || (old->type == wanted->type && old->bytes == wanted->bytes));
    // Changed by something before it, it is to be changed all the same.
    const bool isFirst = changed_.insert(UpperCase(change.key + u'\0' + change.value.name)).second;
    if (isSame && isFirst && !IsDeletedBefore(change.key)) {
      return;
    }
    RegistryChange undo{.action = RegistryAction::kSetValue, .key = change.key};
    if (old) {
      undo.value = *old;
    } else {
      undo.action = RegistryAction::kDeleteValue;
      undo.value.name = change.value.name;
    }
    Take(change,
         {.key = change.key,
          .name = ShowRegistryName(change.value.name),
          .before = Shown(old),
          .after = sets ? Shown(wanted) : u"（删除）"},
         {std::move(undo)});
  }

  const RegistryKeys& keys_;
  Progress& progress_;
  RegistryPlan plan_;
  std::vector<std::vector<RegistryChange>> undo_;  // one a change
  std::vector<std::u16string> deleted_;            // keys
  std::set<std::u16string> changed_;               // values, by key and name in capitals
};

void AddContent(const RegistryKeys& keys, const std::u16string& key, std::vector<RegistryChange>& content,
                Progress& progress) {
  progress.Report(0, 0);
  content.push_back({.action = RegistryAction::kCreateKey, .key = key});
  for (RegistryValue& value : keys.Values(key)) {
    content.push_back({.action = RegistryAction::kSetValue, .key = key, .value = std::move(value)});
  }
  for (const std::u16string& name : keys.Subkeys(key)) {
    AddContent(keys, key + u"\\" + name, content, progress);
  }
}

}  // namespace

std::vector<RegistryChange> ContentOfKey(const RegistryKeys& keys, const std::u16string& key, Progress& progress) {
  std::vector<RegistryChange> content;
  AddContent(keys, key, content, progress);
  return content;
}

RegistryPlan PlanRegistry(const RegistryKeys& keys, const std::vector<RegistryChange>& changes, Progress& progress) {
  Planner planner(keys, progress);
  for (std::size_t i = 0; i < changes.size(); ++i) {
    progress.Report(i, changes.size());
    planner.Add(changes[i]);
  }
  return planner.Take();
}

void ApplyRegistry(RegistryKeys& keys, const std::vector<RegistryChange>& changes, Progress& progress) {
  for (std::size_t i = 0; i < changes.size(); ++i) {
    const RegistryChange& change = changes[i];
    progress.Report(i, changes.size());
    switch (change.action) {
      case RegistryAction::kCreateKey:
        keys.Create(change.key);
        break;
      case RegistryAction::kDeleteKey:
        keys.Delete(change.key);
        break;
      case RegistryAction::kSetValue:
        keys.Create(change.key);
        keys.SetValue(change.key, change.value);
        break;
      case RegistryAction::kDeleteValue:
        keys.DeleteValue(change.key, change.value.name);
        break;
    }
  }
}

std::u16string ShowRegistryName(std::u16string_view name) {
  return name.empty() ? u"（默认）" : std::u16string(name);
}

}  // namespace scrivanta
