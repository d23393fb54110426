#include "search/FindDialog.h"

#include <algorithm>

#include "regexp/MultiReplace.h"
#include "regexp/RegExpExecute.h"
#include "regexp/RegExpMarkerFilter.h"
#include "regexp/RegExpReplace.h"
#include "regexp/RegExpReplacer.h"
#include "rtf/RtfText.h"
#include "search/EditSelection.h"
#include "search/FileReport.h"
#include "search/FileSearch.h"
#include "search/FileSearchCommand.h"
#include "search/FindNext.h"
#include "search/FindPlaces.h"
#include "search/FindTokens.h"
#include "search/Highlight.h"
#include "search/SearchedText.h"
#include "search/UndoFileReplace.h"
#include "shell/workbench/FormKey.h"
#include "shell/workbench/ReplaceSelected.h"
#include "shell/workbench/ResultFiles.h"
#include "text/DecimalText.h"
#include "text/ExplainedError.h"
#include "text/LineText.h"
#include "text/LiteralFinder.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kForm = u"FrmFind";
constexpr std::u16string_view kLineBreak = u"\r\n";
constexpr std::size_t kLongestSelectionToFind = 10'000;  // characters
constexpr char16_t kDropHint[] = u"请将文件拖动到此窗口（同时按住Alt键拖曳时，清除原来的数据）或 右击文件-->";
constexpr char16_t kReplaceTip[] = u"支持如：\\1\\2...正则表达式标签标记";
constexpr char16_t kFilterQuestion[] = u"输入要置前的条目关键字";

// A history out of the settings, with the two tokens in it.
ComboHistory LoadHistory(Settings& settings, std::u16string_view box) {
  const std::u16string key = FormListKey(kForm, box);
  ComboHistory history(SplitLines(settings.Get(key)));
  const bool lineBreakAdded = history.AppendMissing(kLineBreakToken);
  const bool tabAdded = history.AppendMissing(kTabToken);
  if (lineBreakAdded || tabAdded) {
    settings.Save(key, JoinLines(history.items()));
  }
  return history;
}

std::u16string SplitRemark(std::size_t split) {
  return u"，另有" + DecimalText(split) + u"处被格式代码分开，未替换";
}

void PutTextBack(Editor& editor, std::u16string_view text, TextRange selection) {
  if (selection.empty()) {
    editor.SetText(text);
    return;
  }
  const ScrollPosition scroll = editor.Scroll();
  ReplaceSelected(editor, text);
  editor.SetScroll(scroll);
}

}  // namespace

// The selected text; nothing when it is the pattern's last match, which is not to take the pattern's place, or when it
// is longer than anybody looks for.
std::u16string FindDialog::SelectionToFind() const {
  const Editor& editor = workbench_.editor();
  const TextRange selection = editor.Selection();
  const bool isMatchOfPattern =
      state_.isRegExp && !state_.isNewSearch && !state_.findText.empty() && selection.start.value == state_.lastFound;
  return isMatchOfPattern || selection.length > kLongestSelectionToFind ? std::u16string() : editor.SelectedText();
}

void FindDialog::Open(FindView& view) {
  findHistory_ = LoadHistory(workbench_.settings(), u"Combo1");
  replaceHistory_ = LoadHistory(workbench_.settings(), u"Combo2");
  const std::u16string selected = SelectionToFind();
  view.SetFindBox(BoxOfText(selected.empty() ? state_.findText : selected), findHistory_.items());
  view.SetReplaceBox(BoxOfText(state_.replacement), replaceHistory_.items());
  view.SetOptions(state_.searchesUp, state_.matchesCase, state_.isRegExp);
  view.SetInPart(false);
  view.SetDropBox(kDropHint);
  view.SetReplaceTip(state_.isRegExp ? kReplaceTip : u"");
  if (const auto place = ReadDialogPlace(workbench_.settings(), kForm)) {
    view.SetPlace(*place);
  }
}

void FindDialog::Reopen(FindView& view) {
  const std::u16string selected = SelectionToFind();
  if (!selected.empty()) {
    view.SetFindBox(BoxOfText(selected), findHistory_.items());
  }
}

void FindDialog::Close(const FindView& view) {
  ConfineTo(std::nullopt);
  SaveDialogPlace(workbench_.settings(), kForm, view.Place());
}

void FindDialog::TakeOptions(FindView& view) {
  ReadOptions(view);
  view.SetReplaceTip(state_.isRegExp ? kReplaceTip : u"");
}

void FindDialog::TakePart(FindView& view) {
  const TextRange selection = workbench_.editor().Selection();
  const bool isWanted = view.IsInPart();
  if (!isWanted || selection.empty()) {
    ConfineTo(std::nullopt);
    view.SetInPart(false);
    if (isWanted) {
      workbench_.prompts().Ask({.text = u"没有选中的文字。\n请先选中要在其中查找的几行，再勾选“仅在所选范围”。",
                                .icon = Icon::kInformation,
                                .systemModal = true});
    }
    return;
  }
  ConfineTo(selection);
  const std::u16string selected = workbench_.editor().SelectedText();
  const auto lines = std::ranges::count(selected, u'\n') + (selected.ends_with(kLineBreak) ? 0 : 1);
  workbench_.ShowStatus(u"只在所选的 " + DecimalText(lines) + u" 行中查找、替换");
}

// The part stays marked while it is edited.
void FindDialog::ConfineTo(std::optional<TextRange> part) {
  workbench_.editor().MarkPart(part);
  state_.isInPart = part.has_value();
  state_.isNewSearch = true;
}

// Takes what the window holds. False when there is nothing to find, or the part to search is there no more.
bool FindDialog::ReadToSearch(FindView& view) {
  Read(view);
  if (state_.isInPart && !workbench_.editor().MarkedPart()) {
    ConfineTo(std::nullopt);
    view.SetInPart(false);
    workbench_.prompts().Ask(
        {.text = u"要在其中查找的范围已经不在了，现在在全文中查找。", .icon = Icon::kInformation, .systemModal = true});
    return false;
  }
  return !state_.findText.empty();
}

// What a command for all places works on: the part to search, else what is selected, else all.
TextRange FindDialog::PartToChange() {
  Editor& editor = workbench_.editor();
  if (const auto part = PartToSearch(editor, state_)) {
    editor.SetSelection(*part);
  }
  return editor.Selection();
}

// Wherever the search has led, the place is seen.
void FindDialog::ShowPlace(FindView& view) {
  if (const auto place = workbench_.editor().SelectionOnScreen()) {
    view.MoveOff(*place);
  }
}

void FindDialog::ReadOptions(const FindView& view) {
  const FindState before = state_;
  state_.searchesUp = view.SearchesUp();
  state_.matchesCase = view.MatchesCase();
  state_.isRegExp = view.IsRegExp();
  if (state_.searchesUp != before.searchesUp || state_.matchesCase != before.matchesCase ||
      state_.isRegExp != before.isRegExp) {
    state_.isNewSearch = true;
  }
}

// Takes what the window holds into the shared state, and its texts into the histories.
void FindDialog::Read(FindView& view) {
  const std::u16string findBox = view.FindBox();
  const std::u16string replaceBox = view.ReplaceBox();
  const std::u16string findText = TextOfBox(findBox);
  if (state_.findText != findText) {
    state_.findText = findText;
    state_.isNewSearch = true;
  }
  state_.replacement = TextOfBox(replaceBox);
  ReadOptions(view);
  const bool findChanged = findHistory_.PutFirst(findBox);
  const bool replaceChanged = replaceHistory_.PutFirst(replaceBox);
  if (findChanged) {
    view.SetFindBox(findBox, findHistory_.items());
  }
  if (replaceChanged) {
    view.SetReplaceBox(replaceBox, replaceHistory_.items());
  }
  if (findChanged || replaceChanged) {
    SaveHistories();
  }
}

void FindDialog::SaveHistories() {
  Settings& settings = workbench_.settings();
  settings.Save(FormListKey(kForm, u"Combo1"), JoinLines(findHistory_.items()));
  settings.Save(FormListKey(kForm, u"Combo2"), JoinLines(replaceHistory_.items()));
}

void FindDialog::FindNext(FindView& view) {
  if (ReadToSearch(view) && scrivanta::FindNext(workbench_, state_)) {
    ShowPlace(view);
  }
}

void FindDialog::FindPrevious(FindView& view) {
  if (ReadToSearch(view) && scrivanta::FindPrevious(workbench_, state_)) {
    ShowPlace(view);
  }
}

void FindDialog::FindAll(FindView& view) {
  if (!ReadToSearch(view)) {
    return;
  }
  auto work = workbench_.StartWork();
  const std::u16string text = workbench_.editor().Text();
  const auto places = PlacesInDocument(text, workbench_, state_, work->progress());
  if (places.empty()) {
    SayNotFound(workbench_.prompts());
    return;
  }
  HighlightRanges(workbench_, text, places, HighlightHeader::kSongTi, work->progress());
  work.reset();
  workbench_.ShowStatus(FoundRemark(places.size()));
}

// What takes the place of the selected text; nothing when that is no match.
std::optional<std::u16string> FindDialog::ReplacementOfSelection() {
  const Editor& editor = workbench_.editor();
  const TextRange selection = editor.Selection();
  const bool isEmptyMatch =
      state_.isRegExp && !state_.isNewSearch && selection.empty() && selection.start.value == state_.lastFound;
  const std::optional<TextRange> part = PartToSearch(editor, state_);
  const bool isOutside = part && (selection.start < part->start || selection.end() > part->end());
  if ((selection.empty() && !isEmptyMatch) || isOutside) {
    return std::nullopt;
  }
  if (!state_.isRegExp) {
    const LiteralFinder finder(state_.findText, !state_.matchesCase);
    const std::u16string selected = editor.SelectedText();
    const bool isMatch = selected.size() == finder.length() && finder.IsAt(selected, 0);
    return isMatch ? std::optional(state_.replacement) : std::nullopt;
  }
  const auto work = workbench_.StartWork();
  const RegExpReplacer replacer(workbench_.regExpEngine(), state_.findText, state_.replacement,
                                {.ignoreCase = !state_.matchesCase, .multiLine = true});
  const SearchedText searched = TextToSearch(editor, state_);
  std::optional<std::u16string> replacement;
  replacer.regExp().Scan(
      searched.text, 0,
      [&](const RegExpMatch& match) {
        const std::size_t start = searched.begin + match.start;
        if (start == selection.start.value && match.value.size() == selection.length) {
          replacement.emplace();
          replacer.AppendReplacement(*replacement, searched.text, match);
        }
        return start < selection.start.value;
      },
      work->progress());
  return replacement;
}

void FindDialog::Replace(FindView& view) {
  if (!ReadToSearch(view)) {
    return;
  }
  Editor& editor = workbench_.editor();
  const TextRange selection = editor.Selection();
  if (const auto replacement = ReplacementOfSelection()) {
    editor.ReplaceSelection(*replacement);
    // The search goes on behind the new text, or before it. Behind an empty match its own place would come again.
    if (state_.searchesUp) {
      editor.SetSelection({selection.start, 0});
    }
    state_.lastFound = EditGetSelStart(editor);
    state_.isNewSearch = false;
    state_.beginsAtCaret = !state_.searchesUp && !selection.empty();
  }
  if (scrivanta::FindNext(workbench_, state_)) {
    ShowPlace(view);
  }
}

void FindDialog::ReplaceAll(FindView& view) {
  if (!ReadToSearch(view)) {
    return;
  }
  const TextRange selection = PartToChange();
  if (view.KeepsFormatting()) {
    ReplaceAllFormatted(selection);
  } else {
    ReplaceAllPlain(selection);
  }
}

void FindDialog::ReplaceAllPlain(TextRange selection) {
  Editor& editor = workbench_.editor();
  std::size_t replaced = 0;
  {
    const auto work = workbench_.StartWork();
    std::u16string text = selection.empty() ? editor.Text() : editor.SelectedText();
    if (state_.isRegExp) {
      text = ReplaceInText(workbench_.regExpEngine(), text, state_.findText, state_.replacement,
                           {.ignoreCase = !state_.matchesCase}, work->progress(), &replaced);
    } else {
      const MultiReplace replace({{state_.findText, state_.replacement}}, !state_.matchesCase);
      replaced = replace.Apply(text, work->progress());
    }
    if (replaced > 0) {
      PutTextBack(editor, text, selection);
    }
  }
  ReportReplaced(replaced, 0);
}

void FindDialog::ReplaceAllFormatted(TextRange selection) {
  Editor& editor = workbench_.editor();
  RtfText::Outcome outcome;
  {
    const auto work = workbench_.StartWork();
    const std::string rtf = selection.empty() ? editor.Rtf() : editor.SelectedRtf();
    const RtfText text(rtf);
    outcome = text.Replace(FindReplacements(text.text(), state_, workbench_.regExpEngine(), work->progress()));
    if (outcome.replaced > 0) {
      const ScrollPosition scroll = editor.Scroll();
      const bool isTaken = selection.empty() ? editor.SetRtf(outcome.rtf) : editor.ReplaceSelectionByRtf(outcome.rtf);
      if (!isTaken) {
        throw ExplainedError("the rich text was not taken", u"带格式的文本没有放回，文档没有改变。");
      }
      if (selection.empty()) {
        editor.SetSelection({selection.start, 0});
      }
      editor.SetScroll(scroll);
    }
  }
  ReportReplaced(outcome.replaced, outcome.split);
}

void FindDialog::ReportReplaced(std::size_t replaced, std::size_t split) {
  if (replaced == 0 && split == 0) {
    SayNotFound(workbench_.prompts());
    return;
  }
  std::u16string status = u"已替换" + DecimalText(replaced) + u"处";
  if (split > 0) {
    status += SplitRemark(split);
  }
  workbench_.ShowStatus(status);
}

void FindDialog::Filter(FindView& view) {
  if (!ReadToSearch(view)) {
    return;
  }
  PartToChange();
  auto work = workbench_.StartWork();
  const CapturedInput input = CaptureInput(workbench_, kInputFileName, WholeTextEnd::kAsItStands);
  const std::u16string patterns = state_.isRegExp ? state_.findText : WholeLinePattern(state_.findText);
  const auto filter = [&](MarkerFilterMode mode) {
    return MarkerFilterText(workbench_.regExpEngine(), input.text, patterns, mode, !state_.matchesCase,
                            work->progress());
  };
  const std::u16string matches = filter(MarkerFilterMode::kExtract);
  if (matches.empty()) {
    SayNotFound(workbench_.prompts());
    return;
  }
  std::u16string text = matches + filter(MarkerFilterMode::kRemove);
  // Another line may be the last one now; the text ends as it did.
  if (text.ends_with(kLineBreak)) {
    text.resize(text.size() - kLineBreak.size());
  }
  if (input.text.ends_with(kLineBreak)) {
    text += kLineBreak;
  }
  PutTextBack(workbench_, input, kInputFileName, text);
  work.reset();
  ShowDone(workbench_, input, u"含有 " + DecimalText(std::ranges::count(matches, u'\n')) + u" 行在前，其余在后");
}

std::vector<std::filesystem::path> FindDialog::DroppedFiles(const FindView& view) const {
  // Typed ones count too, when they are there: the hint is a line as well.
  std::vector<std::filesystem::path> paths;
  for (const std::u16string& line : SplitLines(WithOnlyFullLineBreaks(view.DropBox()))) {
    const bool isMarked = line.find(kPathMark) != std::u16string::npos;
    for (std::filesystem::path& path : PathsOfLines(TrimSpaces(std::u16string_view(line)), PathLines::kAll)) {
      std::error_code error;
      if (isMarked || std::filesystem::exists(path, error)) {
        paths.push_back(std::move(path));
      }
    }
  }
  return paths;
}

void FindDialog::SearchInFiles(FindView& view) {
  Read(view);
  if (state_.findText.empty()) {
    return;
  }
  std::vector<std::filesystem::path> places = DroppedFiles(view);
  if (places.empty()) {
    const std::filesystem::path folder = AskForFolderToSearch(workbench_);
    if (folder.empty()) {
      return;
    }
    places = {folder};
  }
  const std::u16string filter = AskForFileFilter(workbench_);
  if (filter.empty()) {
    return;
  }
  SearchAndReport(workbench_, places, FileFilter(filter), state_);
}

// Of dropped folders those files that a search would look into. Nothing when the user cancels.
std::optional<FoundFiles> FindDialog::FilesToReplaceIn(const FindView& view) {
  FoundFiles found;
  const std::vector<std::filesystem::path> dropped = DroppedFiles(view);
  if (dropped.empty()) {
    found.files = PathsInEditor(workbench_.editor(), PathLines::kMarked);
  } else if (std::ranges::all_of(dropped, &IsFile)) {
    found.files = dropped;
  } else {
    const std::u16string filter = AskForFileFilter(workbench_);
    if (filter.empty()) {
      return std::nullopt;
    }
    const auto work = workbench_.StartWork();
    found = WalkFiles(dropped, FileFilter(filter), work->progress());
  }
  std::erase_if(found.files, [](const std::filesystem::path& file) { return !IsFile(file); });
  DropRepeatedFiles(found.files);
  DropFilesIn(KeptFolder(workbench_.folders()), found.files);
  return found;
}

void FindDialog::ReplaceInFiles(FindView& view) {
  Read(view);
  if (state_.findText.empty()) {
    return;
  }
  const std::optional<FoundFiles> found = FilesToReplaceIn(view);
  if (!found) {
    return;
  }
  Prompts& prompts = workbench_.prompts();
  if (found->files.empty()) {
    prompts.Ask({.text = u"没有可以替换的文件：请先【在文件中查找】，或将文件拖动到此窗口。",
                 .icon = Icon::kInformation,
                 .systemModal = true});
    return;
  }
  const ReplaceRule rule(state_, workbench_.regExpEngine());
  ReplacePlan plan = PlanOf(*found, rule);
  if (!plan.files.empty()) {
    ReplacePreview preview(workbench_, plan);
    view.ShowPreview(preview);
    if (!preview.isAccepted()) {
      return;
    }
  }
  FileReplaceOutcome outcome;
  {
    const auto work = workbench_.StartWork();
    outcome = CarryOut(plan, rule, KeptFolder(workbench_.folders()), work->progress());
  }
  outcome.leftOver.insert(outcome.leftOver.end(), plan.failures.begin(), plan.failures.end());
  ReportReplacedInFiles(outcome, plan.split);
}

ReplacePlan FindDialog::PlanOf(const FoundFiles& found, const ReplaceRule& rule) {
  const auto work = workbench_.StartWork();
  ReplacePlan plan = PlanReplacement(found.files, rule, work->progress());
  for (const std::filesystem::path& binary : plan.binaries) {
    plan.failures.push_back({binary, u"不是文本文件"});
  }
  plan.failures.insert(plan.failures.end(), found.failures.begin(), found.failures.end());
  return plan;
}

void FindDialog::ReportReplacedInFiles(const FileReplaceOutcome& outcome, std::size_t split) {
  std::u16string status =
      u"已在" + DecimalText(outcome.changed.size()) + u"个文件中替换" + DecimalText(outcome.Places()) + u"处";
  if (split > 0) {
    status += SplitRemark(split);
  }
  workbench_.ShowStatus(status);
  if (outcome.changed.empty() && outcome.leftOver.empty()) {
    SayNotFound(workbench_.prompts());
    return;
  }
  std::u16string end = outcome.leftOver.empty() ? u"已全部替换！" : u"没有全部替换。";
  if (outcome.untouchedFiles > 0) {
    end = u"已中断：还有" + DecimalText(outcome.untouchedFiles) + u"个文件没有替换。";
  }
  workbench_.prompts().Ask(
      {.text = end + DescribeFailures(u"以下文件没有替换，或没有全部替换：", outcome.leftOver), .systemModal = true});
}

void FindDialog::Drop(FindView& view, const std::vector<std::filesystem::path>& paths, bool clear) {
  std::u16string text = clear || DroppedFiles(view).empty() ? std::u16string() : view.DropBox();
  for (const std::filesystem::path& path : paths) {
    if (!text.empty() && !text.ends_with(kLineBreak)) {
      text += kLineBreak;
    }
    text.append(kPathMark).append(TextOfPath(path));
  }
  view.SetDropBox(text);
}

void FindDialog::FilterFindHistory(FindView& view) {
  const std::u16string keyword = workbench_.prompts().Input({.prompt = kFilterQuestion});
  if (!keyword.empty()) {
    findHistory_.MoveToFront(keyword);
    SaveHistories();
    view.SetFindBox(view.FindBox(), findHistory_.items());
  }
}

void FindDialog::FilterReplaceHistory(FindView& view) {
  const std::u16string keyword = workbench_.prompts().Input({.prompt = kFilterQuestion});
  if (!keyword.empty()) {
    replaceHistory_.MoveToFront(keyword);
    SaveHistories();
    view.SetReplaceBox(view.ReplaceBox(), replaceHistory_.items());
  }
}

void FindDialog::ShowStoredHistories(const std::function<void(const std::u16string& key)>& pointAt) {
  if (const auto key = workbench_.settings().RegistryKeyOf(kFormSection)) {
    pointAt(*key);
    workbench_.desktop().RunSystemProgram(u"REGEDIT.EXE", u"");
  } else {
    workbench_.desktop().OpenWithDefaultProgram(workbench_.folders().iniFile);
  }
}

}  // namespace scrivanta
