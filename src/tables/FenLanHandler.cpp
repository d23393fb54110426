#include "tables/FenLanHandler.h"

#include "tables/CopyRecords.h"
#include "tables/FixedLayout.h"
#include "tables/SplitPositions.h"
#include "tables/TableDialogs.h"
#include "tables/TextChoices.h"
#include "text/DecimalText.h"

namespace scrivanta {

namespace {

constexpr std::size_t kMost = 100'000;
constexpr std::size_t kMostCutNamed = 10;

NewspaperOptions OptionsOf(const FenLanChoices& choices) {
  return {.count = NumberTyped(choices.count, u"栏数", 1, kMost, 2),
          .linesPerPage = NumberTyped(choices.linesPerPage, u"每页行数", 1, kMost, 0),
          .width = NumberTyped(choices.width, u"栏宽", 1, kMost, 0),
          .gap = NumberTyped(choices.gap, u"栏间距", 0, kMost, 0),
          .across = choices.across,
          .tooWide = choices.tooWide,
          .unit = choices.unit,
          .encoding = kWorkFileEncoding};
}

// The numbers at the front of the lines of the report of what was cut.
std::u16string CutLines(std::string_view report) {
  std::u16string numbers;
  for (std::size_t i = 0; i < kMostCutNamed && !report.empty(); ++i) {
    numbers += (i == 0 ? u"" : u"、") + Decode(kWorkFileEncoding, report.substr(0, report.find('\t')));
    report.remove_prefix(std::min(report.find('\n') + 1, report.size()));
  }
  return report.empty() ? numbers : numbers + u"……";
}

std::u16string SetColumns(const NewspaperOptions& options, const LinePass& lines, LineWriter& out) {
  StringSink report;
  LineWriter cutOff(report);
  const NewspaperResult result = SetInColumns(lines, out, cutOff, options);
  cutOff.Flush();
  const std::u16string status = u"已把" + DecimalText(result.lines) + u"行分成" + DecimalText(options.count) + u"栏";
  return result.cutLines == 0
             ? status
             : status + u"，截断" + DecimalText(result.cutLines) + u"行：第" + CutLines(report.bytes()) + u"行";
}

RecordFormat SplitFormatOf(const FenLanChoices& choices) {
  switch (choices.way) {
    case FenLanWay::kSplitAtPattern:
      if (choices.splitAt.empty()) {
        throw ChoiceError("there is no pattern", u"请输入正则表达式。");
      }
      return {.separation = Separation::kPattern, .text = choices.splitAt, .encoding = kWorkFileEncoding};
    case FenLanWay::kSplitAtPositions:
      return FormatOfPositions(ParseNumbers(choices.splitAt), choices.unit, kWorkFileEncoding);
    default:
      return FormatOfWord(choices.splitAt);
  }
}

std::u16string Split(const FenLanChoices& choices, ByteSource& source, LineWriter& out, Progress& progress) {
  RecordReader records(source, SplitFormatOf(choices), progress);
  RecordWriter writer(out, {.encoding = kWorkFileEncoding});
  return u"已拆分" + DecimalText(CopyRecords(records, writer)) + u"行";
}

std::u16string Convert(const FenLanChoices& choices, std::string_view input, LineWriter& out, Progress& progress) {
  MemorySource source(input);
  if (choices.way != FenLanWay::kColumns && choices.way != FenLanWay::kBack) {
    return Split(choices, source, out, progress);
  }
  std::optional<MemorySource> again;
  const LinePass lines = [&] {
    again.emplace(input);
    return std::make_unique<LineReader>(*again, LineEnds::kCrLf, progress);
  };
  const NewspaperOptions options = OptionsOf(choices);
  return choices.way == FenLanWay::kBack ? u"已还原成" + DecimalText(TakeColumnsApart(lines, out, options)) + u"行"
                                         : SetColumns(options, lines, out);
}

}  // namespace

Conversion FenLanConversion(FenLanChoices choices) {
  return [choices = std::move(choices)](std::string_view input, LineWriter& out, Progress& progress) {
    return Convert(choices, input, out, progress);
  };
}

void mnuFenLan(Workbench& workbench, TableDialogs& dialogs) {
  ConversionDialog dialog(workbench, u"FenLanOK.txt");
  dialogs.ShowFenLan(dialog);
}

}  // namespace scrivanta
