#include "windows/CoordinatesDialog.h"

#include <algorithm>

#include "text/DecimalText.h"
#include "text/ExplainedError.h"
#include "windows/ScriptLine.h"

namespace scrivanta {

namespace {

constexpr std::size_t kMostShown = 20;  // lines in a message box

}  // namespace

CoordinateOrigin CoordinatesDialog::OriginOf(const CoordinatesForm& form) const {
  switch (form.base) {
    case CoordinateBase::kFirst:
      return FromFirstPoint();
    case CoordinateBase::kPrevious:
      return FromPreviousPoint();
    case CoordinateBase::kPoint: {
      const auto x = LiteralNumber(form.x);
      const auto y = LiteralNumber(form.y);
      if (!x || !y) {
        throw ExplainedError("no point", u"原点的两个坐标要写成整数，如 100 和 -20。");
      }
      return ScreenPoint{*x, *y};
    }
    case CoordinateBase::kWindow:
      break;
  }
  const auto corner = form.caption.empty() ? std::nullopt : places_.ClientCorner(form.caption);
  if (!corner) {
    throw ExplainedError("no window", u"没有找到标题为“" + form.caption + u"”的窗口。\n请先打开它，再从列表中选择。");
  }
  return FromWindow{.corner = *corner, .caption = form.caption};
}

void CoordinatesDialog::Convert(CoordinatesView& view) {
  const CoordinatesForm form = view.Form();
  CoordinateOptions options{.dialect = ScriptDialect::kPairs, .origin = OriginOf(form), .encoding = kWorkFileEncoding};
  CoordinateReport report;
  {
    const std::unique_ptr<BusyWork> work = workbench_.StartWork();
    RewriteInputFile(input_);
    if (form.dialect) {
      options.dialect = *form.dialect;
    } else {
      MemorySource source(input_.bytes);
      LineReader lines(source, LineEnds::kCrLf, work->progress());
      options.dialect = DialectOf(lines, kWorkFileEncoding);
    }
    MemorySource source(input_.bytes);
    LineReader in(source, LineEnds::kCrLf, work->progress());
    ResultFile result(workbench_, u"XiangDuiZuoBiao.txt");
    LineWriter out(result);
    report = MakeCoordinatesRelative(in, out, options);
    out.Flush();
    PutResultBack(workbench_, input_, result);
  }
  view.CloseView();
  Tell(report);
}

void CoordinatesDialog::Tell(const CoordinateReport& report) {
  workbench_.ShowStatus(u"已转换" + DecimalText(report.points) + u"个坐标");
  if (report.left.empty()) {
    return;
  }
  std::u16string text = u"以下" + DecimalText(report.left.size()) + u"处含有变量、表达式或区域，没有改动：";
  for (std::size_t index = 0; index < std::min(report.left.size(), kMostShown); ++index) {
    text += u"\n第" + DecimalText(report.left[index].line) + u"行：" + report.left[index].text;
  }
  if (report.left.size() > kMostShown) {
    text += u"\n……";
  }
  workbench_.prompts().Ask({.text = text, .icon = Icon::kInformation});
}

}  // namespace scrivanta
