#include "shell/window/View.h"

#include <algorithm>
#include <array>

#include "shell/window/Options.h"
#include "text/DecimalText.h"
#include "text/Numbers.h"

namespace scrivanta {

namespace {

constexpr int kWhole = 100;
constexpr std::array kSteps = {50, 67, 80, 90, kWhole, 110, 125, 150, 175, 200, 250, 300, 400};

constexpr std::u16string_view kZoom = u"Zoom";
constexpr std::u16string_view kLineNumbers = u"LineNumbers";
constexpr std::u16string_view kOn = u"1";
constexpr std::u16string_view kOff = u"0";

void Zoom(Workbench& workbench, MainWindow& window, int percent) {
  workbench.settings().Save(kZoom, DecimalText(percent), Store::kRegistry, kWindowSection);
  window.SetZoom(percent);
  workbench.ShowStatus(u"显示比例 " + DecimalText(percent) + u"%");
}

void mnuWordWrap(Workbench& workbench, MainWindow& window) {
  Options options = ReadOptions(workbench.settings());
  options.wraps = !options.wraps;
  SaveOptions(options, workbench.settings());
  window.SetWordWrap(options.wraps);
  workbench.ShowStatus(options.wraps ? u"自动换行：开" : u"自动换行：关");
}

void mnuLineNumbers(Workbench& workbench, MainWindow& window) {
  const bool shown = !ReadLineNumbers(workbench.settings());
  workbench.settings().Save(kLineNumbers, shown ? kOn : kOff, Store::kRegistry, kWindowSection);
  window.SetLineNumbers(shown);
}

}  // namespace

int ReadZoom(const Settings& settings) {
  const auto text = settings.Find(kZoom, Store::kRegistry, kWindowSection);
  const long long percent = text ? LeadingWholeNumber(*text) : kWhole;
  return static_cast<int>(std::clamp<long long>(percent, kSteps.front(), kSteps.back()));
}

bool ReadLineNumbers(const Settings& settings) {
  return settings.Get(kLineNumbers, Store::kRegistry, kWindowSection) == kOn;
}

int NextZoom(int percent, bool larger) {
  if (larger) {
    const auto* const next = std::ranges::upper_bound(kSteps, percent);
    return next == kSteps.end() ? kSteps.back() : *next;
  }
  const auto* const same = std::ranges::lower_bound(kSteps, percent);
  return same == kSteps.begin() ? kSteps.front() : *std::prev(same);
}

void RegisterViewCommands(CommandTable& table, MainWindow& window) {
  const auto zoomBy = [&window](bool larger) {
    return [&window, larger](Workbench& workbench) {
      Zoom(workbench, window, NextZoom(ReadZoom(workbench.settings()), larger));
    };
  };
  table.Add("mnuZoomIn", {zoomBy(true)});
  table.Add("mnuZoomOut", {zoomBy(false)});
  table.Add("mnuZoomReset", {[&window](Workbench& workbench) { Zoom(workbench, window, kWhole); }});
  table.Add("mnuWordWrap", {[&window](Workbench& workbench) { mnuWordWrap(workbench, window); }});
  table.Add("mnuLineNumbers", {[&window](Workbench& workbench) { mnuLineNumbers(workbench, window); }});
}

}  // namespace scrivanta
