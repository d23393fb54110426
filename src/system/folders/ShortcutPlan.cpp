#include "system/folders/ShortcutPlan.h"

#include <algorithm>
#include <map>
#include <system_error>

#include "text/Bytes.h"
#include "text/DecimalText.h"
#include "text/PathParts.h"
#include "text/PlatformFile.h"
#include "text/UpperCase.h"

namespace scrivanta {

namespace {

bool IsStroke(char16_t c) {
  return c == u'\\' || c == u'/';
}

bool IsThere(std::u16string_view target, const VariableLookup& variable) {
  std::error_code error;
  return std::filesystem::exists(PathOfText(WithVariables(target, variable)), error);
}

// A path that begins with `from`, with `to` there; nothing for others.
std::optional<std::u16string> WithBeginning(std::u16string_view path, std::u16string_view from,
                                            std::u16string_view to) {
  const bool begins = path.size() >= from.size() && UpperCase(path.substr(0, from.size())) == UpperCase(from);
  if (from.empty() || !begins) {
    return std::nullopt;
  }
  const std::u16string_view rest = path.substr(from.size());
  if (!rest.empty() && !IsStroke(rest.front()) && !IsStroke(from.back())) {
    return std::nullopt;
  }
  return std::u16string(to) + std::u16string(rest);
}

bool Replace(std::u16string& path, std::u16string_view from, std::u16string_view to) {
  std::optional<std::u16string> replaced = WithBeginning(path, from, to);
  if (!replaced || *replaced == path) {
    return false;
  }
  path = std::move(*replaced);
  return true;
}

// The files and folders below a folder, by their names in capitals.
std::multimap<std::u16string, std::filesystem::path> NamesBelow(const std::filesystem::path& folder,
                                                                Progress& progress) {
  std::multimap<std::u16string, std::filesystem::path> names;
  for (std::filesystem::path& path : WalkFiles({folder}, FileFilter(u""), progress, {.folders = true}).files) {
    const std::u16string text = TextOfPath(path);
    names.emplace(UpperCase(FileNameOf(text)), std::move(path));
  }
  return names;
}

}  // namespace

ShortcutList ReadShortcuts(const FoundFiles& found, const ShortcutStore& store, const VariableLookup& variable,
                           Progress& progress) {
  ShortcutList list;
  list.failures = found.failures;
  for (std::size_t i = 0; i < found.files.size(); ++i) {
    progress.Report(i, found.files.size());
    const std::filesystem::path& file = found.files[i];
    try {
      ListedShortcut listed{.file = file, .shortcut = store.Read(file)};
      if (listed.shortcut.target.empty()) {
        listed.remark = u"目标不是文件";
      } else if (!IsThere(listed.shortcut.target, variable)) {
        listed.isMissing = true;
        listed.remark = u"目标不在";
      }
      list.shortcuts.push_back(std::move(listed));
    } catch (const FileError& error) {
      list.failures.push_back(FailureOf(file, error));
    }
  }
  return list;
}

void CorrectByName(ShortcutList& list, const std::filesystem::path& folder, Progress& progress) {
  const auto names = NamesBelow(folder, progress);
  for (ListedShortcut& listed : list.shortcuts) {
    listed.corrected.reset();
    if (!listed.isMissing) {
      continue;
    }
    const auto [first, last] = names.equal_range(UpperCase(FileNameOf(listed.shortcut.target)));
    const auto count = std::distance(first, last);
    if (count == 1) {
      listed.corrected = listed.shortcut;
      const std::u16string oldFolder = listed.shortcut.target.substr(0, FolderOf(listed.shortcut.target).size());
      const std::u16string target = TextOfPath(first->second);
      const std::u16string newFolder(FolderOf(target));
      listed.corrected->target = target;
      // What stood beside the target has moved with it.
      const auto without = [](const std::u16string& path) {
        return path.substr(0, path.empty() ? 0 : path.size() - 1);
      };
      Replace(listed.corrected->folder, without(oldFolder), without(newFolder));
      Replace(listed.corrected->iconFile, without(oldFolder), without(newFolder));
      listed.remark = u"找到了";
    } else {
      listed.remark = count == 0 ? u"目标不在，没有找到" : u"目标不在，同名的有" + DecimalText(count) + u"个";
    }
  }
}

void CorrectByBeginning(ShortcutList& list, std::u16string_view from, std::u16string_view to) {
  for (ListedShortcut& listed : list.shortcuts) {
    Shortcut corrected = listed.shortcut;
    const bool target = Replace(corrected.target, from, to);
    const bool folder = Replace(corrected.folder, from, to);
    const bool icon = Replace(corrected.iconFile, from, to);
    listed.corrected = target || folder || icon ? std::optional(corrected) : std::nullopt;
  }
}

std::size_t CountCorrected(const ShortcutList& list) {
  return static_cast<std::size_t>(
      std::ranges::count_if(list.shortcuts, [](const ListedShortcut& listed) { return listed.corrected.has_value(); }));
}

}  // namespace scrivanta
