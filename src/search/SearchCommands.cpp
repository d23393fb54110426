#include "search/SearchCommands.h"

#include <memory>

#include "regexp/RegExpExtract.h"
#include "regexp/RegExpReplace.h"
#include "search/FileReport.h"
#include "search/FileSearchCommand.h"
#include "search/FindNext.h"
#include "search/Highlight.h"
#include "search/SearchedText.h"
#include "search/TextRanges.h"
#include "shell/workbench/ResultFiles.h"
#include "text/DecimalText.h"
#include "text/LineText.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kPatternKey = u"DefaultRegPattern";
constexpr std::u16string_view kReplacementKey = u"ToThisStr";
constexpr std::u16string_view kFindInFileKey = u"FindInThisFile";

// Asks with the last answer as preset and keeps the new one; empty when the user cancels.
std::u16string AskAndKeep(Workbench& workbench, const std::u16string& prompt, std::u16string_view key) {
  const std::u16string answer = workbench.prompts().Input({.prompt = prompt, .preset = workbench.settings().Get(key)});
  if (!answer.empty()) {
    workbench.settings().Save(key, answer);
  }
  return answer;
}

std::u16string AskForPattern(Workbench& workbench) {
  return AskAndKeep(workbench, u"输入要寻找的字串（正则表达式）", kPatternKey);
}

void mnufindall(Workbench& workbench, const FindState& state) {
  if (state.findText.empty()) {
    HighlightInEditor(workbench, {});
    return;
  }
  auto work = workbench.StartWork();
  const std::u16string text = workbench.editor().Text();
  const auto places = PlacesInDocument(text, workbench, state, work->progress());
  if (places.empty()) {
    SayNotFound(workbench.prompts());
    return;
  }
  ResultFile have(workbench, u"Have.txt");
  have.Write(Encode(kWorkFileEncoding, text));
  have.Save();
  HighlightRanges(workbench, text, places, HighlightHeader::kMsSansSerif, work->progress());
  work.reset();
  workbench.ShowStatus(FoundRemark(places.size()));
}

bool TellsOfFile(std::u16string_view lines, std::size_t caret) {
  const auto place = PlaceAt(lines, caret);
  return place && IsFile(place->path);
}

// A place in a report of searched files is shown in this program; of any other line the path is opened.
void mnuGoToThis(Workbench& workbench) {
  Editor& editor = workbench.editor();
  if (const auto place = PlaceAt(editor.Text(), editor.Selection().start.value)) {
    workbench.document().OpenAt(place->path, place->line);
    return;
  }
  const TextRange line = WholeLines(editor.Text(), {editor.Selection().start, 0});
  editor.SetSelection(line);
  const auto paths = PathsOfLines(editor.SelectedText(), PathLines::kAll);
  if (paths.empty()) {
    return;
  }
  const Answer answer = workbench.prompts().Ask({.text = u"[是]用文本查看器打开,[否]用关联程序打开,[取消]退出",
                                                 .buttons = Buttons::kYesNoCancel,
                                                 .icon = Icon::kQuestion});
  if (answer == Answer::kYes) {
    workbench.desktop().RunSystemProgram(u"notepad.exe", TextOfPath(paths.front()));
  } else if (answer == Answer::kNo) {
    workbench.desktop().OpenWithDefaultProgram(paths.front());
  }
}

void mnuFindInFile(Workbench& workbench) {
  FindState state;
  state.findText = AskAndKeep(workbench, u"输入要在各行所列的文件、目录中寻找的字串：", kFindInFileKey);
  if (state.findText.empty()) {
    return;
  }
  auto places = PathsInEditor(workbench.editor(), PathLines::kAll);
  std::erase_if(places, [](const std::filesystem::path& place) {
    std::error_code error;
    return !std::filesystem::exists(place, error);
  });
  if (places.empty()) {
    SayNotFound(workbench.prompts());
    return;
  }
  SearchAndReport(workbench, places, FileFilter(u"*.*"), state);
}

void mnuRegGet(Workbench& workbench) {
  const std::u16string pattern = AskForPattern(workbench);
  if (pattern.empty()) {
    return;
  }
  auto work = workbench.StartWork();
  const CapturedInput input = CaptureInput(workbench, kInputFileName, WholeTextEnd::kAsItStands);
  const auto results = ExtractFromText(workbench.regExpEngine(), input.text, pattern, {}, work->progress());
  if (results.empty()) {
    SayNotFound(workbench.prompts());
    return;
  }
  ResultFile lines(workbench, kInputFileName);
  lines.Write(Encode(kWorkFileEncoding, JoinLines(results) + u"\r\n"));
  PutResultBack(workbench, input, lines);
  work.reset();
  ShowDone(workbench, input, u"已提取 " + DecimalText(results.size()) + u" 处");
}

void mnuRegReplace(Workbench& workbench) {
  const std::u16string pattern = AskForPattern(workbench);
  if (pattern.empty()) {
    return;
  }
  const std::u16string replacement =
      AskAndKeep(workbench, u"替换为（取正则表达式中相应括号中的部分用：\\1\\2\\3...）：", kReplacementKey);
  if (replacement.empty()) {
    return;
  }
  auto work = workbench.StartWork();
  const CapturedInput input = CaptureInput(workbench, kInputFileName, WholeTextEnd::kAsItStands);
  std::size_t count = 0;
  const std::u16string result =
      ReplaceInText(workbench.regExpEngine(), input.text, pattern, replacement, {}, work->progress(), &count);
  if (count == 0) {
    SayNotFound(workbench.prompts());
    return;
  }
  PutTextBack(workbench, input, kInputFileName, result);
  work.reset();
  ShowDone(workbench, input, u"已替换" + DecimalText(count) + u"处");
}

}  // namespace

void RegisterSearchCommands(CommandTable& table, SearchDialogs& dialogs) {
  const auto state = std::make_shared<FindState>();  // what the dialog and the commands share
  const auto showFind = [state, &dialogs](FindDialogFocus focus) {
    return [state, &dialogs, focus](Workbench& workbench) { dialogs.ShowFind(workbench, *state, focus); };
  };
  table.Add("mnuFind", {showFind(FindDialogFocus::kFindText)});
  table.Add("mnuReplace", {showFind(FindDialogFocus::kReplacement)});
  table.Add("mnuFindNext", {[state](Workbench& workbench) { FindNext(workbench, *state); }});
  table.Add("mnuFindPrevious", {[state](Workbench& workbench) { FindPrevious(workbench, *state); }});
  table.Add("mnufindall", {[state](Workbench& workbench) { mnufindall(workbench, *state); }});
  table.Add("mnuGoToThis", {.handler = &mnuGoToThis, .meantByEnter = &TellsOfFile});
  table.Add("mnuFindInFile", {&mnuFindInFile});
  table.Add("mnuRegGet", {&mnuRegGet});
  table.Add("mnuRegReplace", {&mnuRegReplace});
  table.Add("mnuRegTest", {[&dialogs](Workbench& workbench) { dialogs.ShowRegularTest(workbench); }});
}

}  // namespace scrivanta
