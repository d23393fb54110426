#include "lines/DelLinesDialog.h"

#include <algorithm>
#include <cmath>

#include "lines/LineCleanup.h"
#include "lines/LineWork.h"
#include "text/DecimalText.h"
#include "text/Numbers.h"

namespace scrivanta {

namespace {

constexpr double kLargest = 1e18;  // beyond any line number, and well within long long

long long Whole(double number) {
  return static_cast<long long>(std::clamp(number, -kLargest, kLargest));
}

}  // namespace

void DelLinesDialog::Delete(DelLinesView& view) {
  double first = LeadingNumber(view.Start());
  double last = LeadingNumber(view.End());
  if (last < first) {
    const Answer answer = workbench_.prompts().Ask(
        {.text = u"后数<前数，是否交换！", .buttons = Buttons::kYesNo, .icon = Icon::kQuestion});
    if (answer == Answer::kYes) {
      view.SetRange(DecimalText(Whole(last)), DecimalText(Whole(first)));
      first = LeadingNumber(view.Start());
      last = LeadingNumber(view.End());
    }
  }
  // A line is a whole number, so a fraction only shows on which side of it a line lies.
  const LineRange range{Whole(std::ceil(first)), Whole(std::floor(last))};
  LineCounts counts;
  {
    const std::unique_ptr<BusyWork> work = workbench_.StartWork();
    RewriteInputFile(input_);
    counts = TransformLines(workbench_, input_, u"DelLineFromXToY.txt", work->progress(),
                            [&range](LineReader& in, LineWriter& out) { DelLines(in, out, range); });
  }
  view.CloseView();
  ShowDone(workbench_, input_, u"已删除 " + counts.Removed());
}

}  // namespace scrivanta
