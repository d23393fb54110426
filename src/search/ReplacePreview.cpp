#include "search/ReplacePreview.h"

#include <algorithm>

#include "search/FindTokens.h"
#include "text/DecimalText.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

// The folder that all the files lie below; empty when there is none.
std::filesystem::path CommonFolder(const std::vector<PlannedFile>& files) {
  std::filesystem::path common = files.front().path.parent_path();
  for (const PlannedFile& file : files) {
    while (std::mismatch(common.begin(), common.end(), file.path.begin(), file.path.end()).first != common.end()) {
      common = common.parent_path();
    }
  }
  return common.has_relative_path() ? common : std::filesystem::path();
}

// In one line, whatever it is.
std::u16string Shown(std::u16string_view text) {
  return BoxOfText(text);
}

}  // namespace

void ReplacePreview::Open(PreviewView& view) {
  const std::filesystem::path folder = CommonFolder(plan_.files);
  std::vector<PreviewRow> shown;
  rows_.clear();
  for (std::size_t index = 0; index < plan_.files.size(); ++index) {
    const PlannedFile& file = plan_.files[index];
    const std::u16string path = TextOfPath(folder.empty() ? file.path : file.path.lexically_relative(folder));
    std::size_t next = 0;
    for (const PlannedPlace& place : file.shown) {
      shown.push_back({path, DecimalText(place.line), Shown(place.before), Shown(place.after)});
      rows_.push_back({index, next, next + 1});
      ++next;
    }
    if (next < file.ticks.size()) {
      shown.push_back({path, u"", u"（另有" + DecimalText(file.ticks.size() - next) + u"处没有列出）", u""});
      rows_.push_back({index, next, file.ticks.size()});
    }
  }
  view.ShowFolder(folder.empty() ? std::u16string() : u"文件夹：" + TextOfPath(folder));
  view.ShowRows(shown);
  ShowState(view);
}

bool ReplacePreview::IsTicked(std::size_t row) const {
  const Places& places = rows_.at(row);
  const std::vector<bool>& ticks = plan_.files[places.file].ticks;
  const auto begin = ticks.begin();
  return std::find(begin + static_cast<std::ptrdiff_t>(places.begin), begin + static_cast<std::ptrdiff_t>(places.end),
                   false) == begin + static_cast<std::ptrdiff_t>(places.end);
}

void ReplacePreview::Tick(const Places& places, bool ticked) {
  std::vector<bool>& ticks = plan_.files[places.file].ticks;
  std::fill(ticks.begin() + static_cast<std::ptrdiff_t>(places.begin),
            ticks.begin() + static_cast<std::ptrdiff_t>(places.end), ticked);
}

void ReplacePreview::Toggle(PreviewView& view, const std::vector<std::size_t>& rows) {
  const bool ticked = !std::ranges::all_of(rows, [this](std::size_t row) { return IsTicked(row); });
  for (const std::size_t row : rows) {
    Tick(rows_.at(row), ticked);
  }
  ShowState(view);
}

void ReplacePreview::ToggleFile(PreviewView& view, std::size_t row) {
  const std::size_t file = rows_.at(row).file;
  std::vector<std::size_t> rows;
  for (std::size_t other = 0; other < rows_.size(); ++other) {
    if (rows_[other].file == file) {
      rows.push_back(other);
    }
  }
  Toggle(view, rows);
}

void ReplacePreview::TickAll(PreviewView& view, bool ticked) {
  for (const Places& places : rows_) {
    Tick(places, ticked);
  }
  ShowState(view);
}

void ReplacePreview::ShowState(PreviewView& view) const {
  const std::size_t places = plan_.TickedPlaces();
  std::u16string count = u"已勾选" + DecimalText(plan_.TickedFiles()) + u"个文件中的" + DecimalText(places) +
                         u"处，共" + DecimalText(plan_.files.size()) + u"个文件" + DecimalText(plan_.Places()) + u"处";
  if (plan_.split > 0) {
    count += u"；另有" + DecimalText(plan_.split) + u"处被格式代码分开，不能替换";
  }
  view.ShowTicks();
  view.ShowCount(count);
  view.EnableReplace(places > 0);
}

void ReplacePreview::Replace(PreviewView& view) {
  isAccepted_ =
      workbench_.prompts().Ask({.text = u"将在" + DecimalText(plan_.TickedFiles()) + u"个文件中替换" +
                                        DecimalText(plan_.TickedPlaces()) +
                                        u"处。替换前的文件会留到下一次替换，在此之前可以用【撤消文件替换】还原。\n"
                                        u"是否继续？",
                                .buttons = Buttons::kYesNo,
                                .icon = Icon::kWarning,
                                .defaultAnswer = Answer::kNo,
                                .systemModal = true}) == Answer::kYes;
  if (isAccepted_) {
    view.Leave();
  }
}

}  // namespace scrivanta
