#include "tables/JoinHandler.h"

#include <memory>
#include <optional>

#include "tables/TableDialogs.h"
#include "tables/TextChoices.h"
#include "text/DecimalText.h"
#include "text/ErrorText.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

JoinOptions OptionsOf(const JoinChoices& choices) {
  return {.kind = choices.kind,
          .key = choices.key,
          .secondKey = choices.secondKey,
          .columns = choices.columns,
          .secondColumns = choices.secondColumns,
          .comparison = choices.comparison,
          .hasHeader = choices.hasHeader,
          .format = FormatOfWord(choices.delimiter),
          .secondFormat = FormatOfWord(choices.secondDelimiter)};
}

OpenTable TableOf(std::string_view text, const RecordFormat& format, Progress& progress) {
  const auto source = std::make_shared<std::optional<MemorySource>>();
  return [text, &format, &progress, source] { return RecordReader(source->emplace(text), format, progress); };
}

std::u16string StatusOf(const JoinCounts& counts) {
  return u"关联得到" + DecimalText(counts.joined) + u"行；没有配上的：第一表" + DecimalText(counts.unmatchedFirst) +
         u"行，第二表" + DecimalText(counts.unmatchedSecond) + u"行";
}

// The lists of rows without a partner are left empty where there are none.
Conversion JoinConversion(const JoinOptions& options, std::string_view second, ByteSink& firstList,
                          ByteSink& secondList) {
  return [&options, second, &firstList, &secondList](std::string_view input, LineWriter& out, Progress& progress) {
    LineWriter firstWriter(firstList);
    LineWriter secondWriter(secondList);
    const JoinCounts counts =
        JoinTables(TableOf(input, options.format, progress), TableOf(second, options.secondFormat, progress), options,
                   {out, &firstWriter, &secondWriter}, progress);
    firstWriter.Flush();
    secondWriter.Flush();
    return StatusOf(counts);
  };
}

}  // namespace

const std::string& JoinDialog::SecondTable(const std::u16string& file) {
  if (file.empty()) {
    throw ChoiceError("there is no second table", u"请选择第二个表的文件。");
  }
  if (file != secondFile_) {
    second_ = Encode(kWorkFileEncoding, dialog_.workbench().document().TextOfFile(std::filesystem::path(file)));
    secondFile_ = file;
  }
  return second_;
}

std::u16string JoinDialog::PreviewOf(const JoinChoices& choices) {
  try {
    const JoinOptions options = OptionsOf(choices);
    StringSink ignored;
    return dialog_.PreviewOf(JoinConversion(options, BeginningOf(SecondTable(choices.file)), ignored, ignored));
  } catch (const std::exception& error) {
    return FailureText(error);
  }
}

void JoinDialog::Run(const JoinChoices& choices) {
  const JoinOptions options = OptionsOf(choices);
  Workbench& workbench = dialog_.workbench();
  ResultFile firstList(workbench, u"DataGuanLianOnlyFirst.txt");
  ResultFile secondList(workbench, u"DataGuanLianOnlySecond.txt");
  dialog_.Run(JoinConversion(options, SecondTable(choices.file), firstList, secondList));
  if (!choices.listsUnmatched) {
    return;
  }
  for (const ResultFile* list : {&firstList, &secondList}) {
    list->Save();
    workbench.desktop().OpenWithDefaultProgram(list->path());
  }
}

std::u16string JoinDialog::AskForSecond() {
  const std::filesystem::path file = dialog_.workbench().prompts().AskForFile({.filter = u"*.txt;*.csv;*.tsv"});
  return file.empty() ? std::u16string() : TextOfPath(file);
}

void mnuDataGuanLianHeBin(Workbench& workbench, TableDialogs& dialogs) {
  JoinDialog dialog(workbench);
  dialogs.ShowDataGuanLianHeBin(dialog);
}

}  // namespace scrivanta
