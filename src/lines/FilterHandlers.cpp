#include "lines/FilterHandlers.h"

#include <functional>
#include <optional>
#include <utility>

#include "lines/LineWork.h"
#include "lines/RegExpLineFilters.h"
#include "lines/WordFilter.h"
#include "lines/duplicates/DuplicateFilter.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kKeywordKey = u"NeedWordS$";
constexpr std::u16string_view kDefaultPattern = u"[a-su-zA-SU-Z]+|[\\d]+";

using TwoGroups = std::function<void(LineReader& in, LineWriter& first, LineWriter& second)>;

// Divides the captured lines into two files. Returns how many the first and the second have got.
std::pair<std::uint64_t, std::uint64_t> DivideLines(const CapturedInput& input, ResultFile& first, ResultFile& second,
                                                    Progress& progress, const TwoGroups& divide) {
  InputLines lines(input, progress);
  LineWriter firstWriter(first);
  LineWriter secondWriter(second);
  divide(lines.reader(), firstWriter, secondWriter);
  firstWriter.Flush();
  secondWriter.Flush();
  first.Save();
  second.Save();
  return {firstWriter.lines(), secondWriter.lines()};
}

Answer AskHowManyToKeep(Workbench& workbench) {
  return workbench.prompts().Ask({.text = u"[是]保留一条重复记录，[否]删除所有重复记录，[取消]退出",
                                  .buttons = Buttons::kYesNoCancel,
                                  .icon = Icon::kQuestion,
                                  .defaultAnswer = Answer::kYes});
}

// Divides the lines into those that are kept and a report of the repeats, and puts both back.
void RunDuplicateFilter(Workbench& workbench, bool keepFirst, WholeTextEnd wholeTextEnd, bool addLineBreak,
                        const std::function<void(LineReader&, LineWriter&, LineWriter&, Progress&)>& filter) {
  std::unique_ptr<BusyWork> work = workbench.StartWork();
  CapturedInput input = CaptureInput(workbench, kInputFileName, wholeTextEnd);
  if (addLineBreak) {
    AddLineBreak(input);
  }
  std::uint64_t read = 0;
  std::uint64_t remaining = 0;
  ResultFile kept(workbench, u"FilterLineOk.txt");
  ResultFile report(workbench, u"FilterLineSameOk.txt");
  DivideLines(input, kept, report, work->progress(), [&](LineReader& in, LineWriter& first, LineWriter& second) {
    filter(in, first, second, work->progress());
    read = in.number();
    remaining = first.lines();
  });
  ResultFile collected(workbench, u"Collect.txt");
  if (keepFirst) {
    MergeFiles({&kept, &report}, collected, work->progress());
  } else {
    ResultFile dropped(workbench, u"DelSameLine.txt");
    MemorySource keptBytes(kept.bytes());
    MemorySource reportBytes(report.bytes());
    LineReader keptReader(keptBytes, LineEnds::kCrLf, work->progress());
    LineReader reportReader(reportBytes, LineEnds::kCrLf, work->progress());
    LineWriter writer(dropped);
    DropReportedLines(keptReader, reportReader, writer, work->progress());
    writer.Flush();
    remaining = writer.lines();
    dropped.Save();
    MergeFiles({&dropped, &report}, collected, work->progress());
  }
  PutResultBack(workbench, input, collected);
  work.reset();
  ShowDone(workbench, input,
           u"共 " + DecimalText(read) + u" 行：保留 " + DecimalText(remaining) + u" 行，重复 " +
               DecimalText(read - remaining) + u" 行列在后面");
}

// What the questions of the filter over the whole text have given.
struct DuplicateChoice {
  std::u16string pattern;  // empty: without regular expressions
  bool keepFirst = true;
  DuplicateKey key = DuplicateKey::kLine;
};

// Nothing when the user has cancelled.
std::optional<DuplicateChoice> AskForDuplicateChoice(Workbench& workbench) {
  Prompts& prompts = workbench.prompts();
  DuplicateChoice choice;
  const Answer byPattern =
      prompts.Ask({.text = u"是否用正则方式过滤，选【是】，则每行用正则表达式提取，提取串相同即认为是重复行",
                   .buttons = Buttons::kYesNoCancel,
                   .icon = Icon::kQuestion,
                   .defaultAnswer = Answer::kNo});
  if (byPattern == Answer::kCancel) {
    return std::nullopt;
  }
  if (byPattern == Answer::kYes) {
    choice.pattern = prompts.Input({.prompt = u"输入过滤正则式，如提取每行标准号的正则式：[a-su-zA-SU-Z]+|[\\d]+：",
                                    .preset = std::u16string(kDefaultPattern)});
    if (choice.pattern.empty()) {
      return std::nullopt;
    }
  }
  const Answer keep = AskHowManyToKeep(workbench);
  if (keep == Answer::kCancel) {
    return std::nullopt;
  }
  choice.keepFirst = keep == Answer::kYes;
  if (byPattern == Answer::kYes) {
    return choice;
  }
  const Answer key = prompts.Ask({.text = u"[是]每行只取文件名部分进行比较，[否]整行文本方式比较，[取消]退出",
                                  .buttons = Buttons::kYesNoCancel,
                                  .icon = Icon::kQuestion,
                                  .defaultAnswer = Answer::kNo});
  if (key == Answer::kCancel) {
    return std::nullopt;
  }
  choice.key = key == Answer::kYes ? DuplicateKey::kFileName : DuplicateKey::kLine;
  return choice;
}

void mnuFilterNeedLine(Workbench& workbench) {
  const std::u16string keyword = workbench.prompts().Input(
      {.prompt = u"输入过滤行关键字：", .title = u"输入信息", .preset = workbench.settings().Get(kKeywordKey)});
  if (keyword.empty()) {
    return;
  }
  workbench.settings().Save(kKeywordKey, keyword);
  const Answer isPattern = workbench.prompts().Ask({.text = u"关键字是否为正则表达式？",
                                                    .title = u"过虑方式",
                                                    .buttons = Buttons::kYesNo,
                                                    .icon = Icon::kQuestion,
                                                    .defaultAnswer = Answer::kNo});
  std::unique_ptr<BusyWork> work = workbench.StartWork();
  const CapturedInput input = CaptureInput(workbench);
  const WordFilterOptions options{keyword, kWorkFileEncoding};
  ResultFile have(workbench, u"FilterHave.txt");
  ResultFile haveNot(workbench, u"FilterNotHave.txt");
  const auto [with, without] =
      DivideLines(input, have, haveNot, work->progress(), [&](LineReader& in, LineWriter& first, LineWriter& second) {
        if (isPattern == Answer::kYes) {
          RegExpWordFilter(input.text, first, second, options, workbench.regExpEngine(), work->progress());
        } else {
          WordFilter(in, first, second, options);
        }
      });
  ResultFile all(workbench, u"FilterAll.txt");
  MergeFiles({&have, &haveNot}, all, work->progress());
  PutResultBack(workbench, input, all);
  work.reset();
  const std::u16string having = DecimalText(with - kHaveHeaderLines);
  const std::u16string others = DecimalText(without - kHaveNotHeaderLines);
  ShowDone(workbench, input,
           isPattern == Answer::kYes ? u"匹配 " + having + u" 处在前，其余 " + others + u" 行在后"
                                     : u"含有 " + having + u" 行在前，不含 " + others + u" 行在后");
}

void mnuFilterRepeatLine(Workbench& workbench) {
  const std::optional<DuplicateChoice> choice = AskForDuplicateChoice(workbench);
  if (!choice) {
    return;
  }
  const bool byPattern = !choice->pattern.empty();
  RunDuplicateFilter(workbench, choice->keepFirst, WholeTextEnd::kAsItStands, byPattern,
                     [&](LineReader& in, LineWriter& kept, LineWriter& report, Progress& progress) {
                       if (byPattern) {
                         RegExpFilterDuplicates(in, kept, report, choice->pattern, kWorkFileEncoding,
                                                workbench.regExpEngine(), progress);
                       } else {
                         FilterDuplicates(in, kept, report, {choice->key, kWorkFileEncoding});
                       }
                     });
}

void mnuFilterContinueRepeatLine(Workbench& workbench) {
  const Answer keep = AskHowManyToKeep(workbench);
  if (keep == Answer::kCancel) {
    return;
  }
  RunDuplicateFilter(workbench, keep == Answer::kYes, WholeTextEnd::kLineBreak, false,
                     [](LineReader& in, LineWriter& kept, LineWriter& report, Progress&) {
                       FilterConsecutiveDuplicates(in, kept, report, kWorkFileEncoding);
                     });
}

}  // namespace

void AddFilterCommands(CommandTable& table) {
  table.Add("mnuFilterNeedLine", {&mnuFilterNeedLine});
  table.Add("mnuFilterRepeatLine", {&mnuFilterRepeatLine});
  table.Add("mnuFilterContinueRepeatLine", {&mnuFilterContinueRepeatLine});
}

}  // namespace scrivanta
