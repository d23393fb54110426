#include "lines/SortDialog.h"

#include <algorithm>

#include "lines/LineWork.h"
#include "text/DecimalText.h"
#include "text/Numbers.h"

namespace scrivanta {

void SortDialog::Capture(SortView& view) {
  input_ = CaptureInput(workbench_);
  NoProgress progress;
  InputLines lines(input_, progress);
  while (lines.reader().Next()) {
  }
  lineCount_ = static_cast<std::size_t>(lines.reader().number());
  const std::u16string count = DecimalText(lineCount_);
  view.SetTotal(count);
  view.SetRange(u"1", count);
}

void SortDialog::Sort(SortView& view) {
  if (!IsStillCaptured()) {
    Capture(view);
    workbench_.ShowStatus(u"文本或选择已改变，行数已更新，请再按“排序”");
    return;
  }
  const auto count = static_cast<long long>(lineCount_);
  const long long askedFirst = LeadingWholeNumber(view.From());
  const long long askedLast = LeadingWholeNumber(view.To());
  const long long first = std::clamp(askedFirst, 1LL, count);
  const long long last = std::clamp(askedLast, 1LL, count);
  if (first != askedFirst || last != askedLast) {
    view.SetRange(DecimalText(first), DecimalText(last));
    workbench_.prompts().Ask({.text = u"排序范围应在1至" + DecimalText(count) + u"之间，已改为" + DecimalText(first) +
                                      u"至" + DecimalText(last) + u"。",
                              .icon = Icon::kInformation});
  }
  const SortOptions options{.by = view.By(),
                            .descending = view.IsDescending(),
                            .first = static_cast<std::size_t>(first),
                            .last = static_cast<std::size_t>(last),
                            .encoding = kWorkFileEncoding};
  {
    ResultFile result(workbench_, u"FileSortOK.txt");
    const std::unique_ptr<BusyWork> work = workbench_.StartWork();
    RewriteInputFile(input_);
    InputLines lines(input_, work->progress());
    LineWriter writer(result);
    SortLines(LineStore(lines.reader()), writer, options, work->progress());
    writer.Flush();
    PutBack(view, result);
  }
  ShowDone(workbench_, input_, u"已排序 " + DecimalText(last - first + 1) + u" 行");
}

bool SortDialog::IsStillCaptured() const {
  const Editor& editor = workbench_.editor();
  if (editor.Selection().empty() != input_.selection.empty()) {
    return false;
  }
  return input_.selection.empty() ? editor.Text() == input_.OwnText()
                                  : editor.Selection() == input_.selection && editor.SelectedText() == input_.OwnText();
}

// The window stays open, so what was sorted is captured again. The range stays.
void SortDialog::PutBack(SortView& view, const ResultFile& result) {
  const std::u16string from = view.From();
  const std::u16string to = view.To();
  PutResultBack(workbench_, input_, result);
  Capture(view);
  view.SetRange(from, to);
}

}  // namespace scrivanta
