#include "tables/SdfHandler.h"

#include "tables/FixedWidth.h"
#include "tables/TableDialogs.h"
#include "tables/TextChoices.h"
#include "text/AtomicFile.h"
#include "text/DecimalText.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

FixedLayout LayoutOf(const SdfChoices& choices, std::string_view input, Progress& progress) {
  FixedLayout layout{.unit = choices.unit};
  if (!choices.widths.empty()) {
    for (const std::size_t width : ParseNumbers(choices.widths)) {
      layout.columns.push_back({.width = width});
    }
  } else if (choices.isBack) {
    throw ChoiceError("the widths are missing", u"请输入各列的宽度，或读入版式。");
  } else {
    MemorySource source(input);
    RecordReader records(source, FormatOfWord(choices.delimiter), progress);
    layout = FindLayout(records, TextWidth(kWorkFileEncoding, choices.unit), choices.unit);
  }
  SetAligns(layout, choices.aligns);
  layout.endMark = choices.endMark;
  return layout;
}

std::u16string Convert(const SdfChoices& choices, std::string_view input, LineWriter& out, Progress& progress) {
  const FixedLayout layout = LayoutOf(choices, input, progress);
  const RecordFormat delimited = FormatOfWord(choices.delimiter);
  MemorySource source(input);
  if (choices.isBack) {
    RecordReader records(source, FormatOfLayout(layout, kWorkFileEncoding), progress);
    RecordWriter writer(out, delimited);
    return u"已把" + DecimalText(ReadFixedWidth(records, writer, layout)) + u"条记录转为分隔文本";
  }
  RecordReader records(source, delimited, progress);
  return u"已把" + DecimalText(WriteFixedWidth(records, out, layout, kWorkFileEncoding)) + u"条记录转为SDF，共" +
         DecimalText(layout.columns.size()) + u"列";
}

}  // namespace

Conversion SdfConversion(SdfChoices choices) {
  return [choices = std::move(choices)](std::string_view input, LineWriter& out, Progress& progress) {
    return Convert(choices, input, out, progress);
  };
}

void SaveLayout(ConversionDialog& dialog, const SdfChoices& choices) {
  Workbench& workbench = dialog.workbench();
  NoProgress progress;
  const FixedLayout layout = LayoutOf(choices, dialog.input(), progress);
  const std::filesystem::path file = workbench.prompts().AskForFile({.initialName = u"SDF版式.txt"});
  if (file.empty()) {
    return;
  }
  if (InspectReplaceTarget(file).exists && workbench.prompts().Ask({.text = u"文件已存在，是否替换？",
                                                                    .buttons = Buttons::kYesNo,
                                                                    .icon = Icon::kQuestion,
                                                                    .defaultAnswer = Answer::kNo}) != Answer::kYes) {
    return;
  }
  ReplaceFileContent(file, Encode(kWorkFileEncoding, LayoutToText(layout)));
}

std::optional<SdfChoices> LoadLayout(ConversionDialog& dialog, SdfChoices choices) {
  const std::filesystem::path file = dialog.workbench().prompts().AskForFile({});
  if (file.empty()) {
    return std::nullopt;
  }
  const FixedLayout layout = LayoutFromText(dialog.workbench().document().TextOfFile(file));
  choices.widths.clear();
  for (const FixedColumn& column : layout.columns) {
    choices.widths += (choices.widths.empty() ? u"" : u",") + DecimalText(column.width);
  }
  choices.aligns = AlignLetters(layout);
  choices.unit = layout.unit;
  choices.endMark = layout.endMark;
  return choices;
}

void mnuChangeToSDFFile(Workbench& workbench, TableDialogs& dialogs) {
  ConversionDialog dialog(workbench, u"ChangeToSDFFileOK.txt");
  dialogs.ShowChangeToSDFFile(dialog);
}

}  // namespace scrivanta
