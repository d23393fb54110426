#include "windows/desk/WindowLists.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <unordered_map>

#include "text/DecimalText.h"
#include "text/LineText.h"
#include "text/UpperCase.h"
#include "windows/ScriptLine.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kBlanks = u" \t\u3000";

// The words of a filter; every one must be found.
class WordFilter {
 public:
  explicit WordFilter(std::u16string_view filter) {
    const std::u16string upper = UpperCase(filter);
    for (std::size_t start = upper.find_first_not_of(kBlanks); start != upper.npos;) {
      const std::size_t end = std::min(upper.find_first_of(kBlanks, start), upper.size());
      words_.push_back(upper.substr(start, end - start));
      start = upper.find_first_not_of(kBlanks, end);
    }
  }

  bool Fits(std::initializer_list<std::u16string_view> texts) const {
    std::u16string all;
    for (const std::u16string_view text : texts) {
      all += UpperCase(text) + u'\n';
    }
    return std::ranges::all_of(words_, [&all](const std::u16string& word) { return all.find(word) != all.npos; });
  }

 private:
  std::vector<std::u16string> words_;
};

long long AreaOf(const WindowBounds& bounds) {
  return bounds.width * bounds.height;
}

}  // namespace

bool WindowBounds::Holds(ScreenPoint point) const {
  return point.x >= corner.x && point.y >= corner.y && point.x < corner.x + width && point.y < corner.y + height;
}

bool DeskWindow::IsSameAs(const DeskWindow& other) const {
  return handle == other.handle && process == other.process && className == other.className;
}

const DeskWindow* DeskLists::WindowOf(WindowHandle handle) const {
  const auto found = std::ranges::find(windows, handle, &DeskWindow::handle);
  return found == windows.end() ? nullptr : &*found;
}

const DeskProcess* DeskLists::ProcessOf(ProcessId id) const {
  const auto found = std::ranges::find(processes, id, &DeskProcess::id);
  return found == processes.end() ? nullptr : &*found;
}

std::u16string DeskLists::ProcessName(ProcessId id) const {
  const DeskProcess* const process = ProcessOf(id);
  return process != nullptr ? process->name : std::u16string();
}

std::size_t DeskLists::CountWindows(ProcessId process) const {
  return static_cast<std::size_t>(std::ranges::count_if(windows, [process](const DeskWindow& window) {
    return window.process == process && window.parent == 0 && window.isVisible;
  }));
}

std::u16string HandleText(WindowHandle handle) {
  constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
  constexpr std::size_t kFewestDigits = 8;
  constexpr unsigned kBitsOfDigit = 4;
  std::u16string text;
  for (; handle != 0 || text.size() < kFewestDigits; handle >>= kBitsOfDigit) {
    text.insert(text.begin(), kDigits[handle % kDigits.size()]);
  }
  return u"0x" + text;
}

std::u16string BoundsText(const WindowBounds& bounds) {
  return DecimalText(bounds.corner.x) + u", " + DecimalText(bounds.corner.y) + u"，" + DecimalText(bounds.width) +
         u"×" + DecimalText(bounds.height);
}

std::u16string StateText(const DeskWindow& window) {
  std::u16string text;
  const auto add = [&text](bool is, std::u16string_view state) {
    if (is) {
      text += (text.empty() ? u"" : u"、") + std::u16string(state);
    }
  };
  add(!window.isVisible, u"看不见");
  add(!window.isEnabled, u"不可用");
  add(window.isMinimised, u"最小化");
  add(window.isMaximised, u"最大化");
  add(window.isOnTop, u"总在前面");
  add(window.isHung, u"没有响应");
  return text;
}

std::u16string MemoryText(std::uint64_t bytes) {
  constexpr std::uint64_t kKilobyte = 1024;
  return bytes == 0 ? std::u16string() : DecimalText(bytes / kKilobyte) + u" KB";
}

WindowBounds ParseBounds(std::u16string_view text) {
  constexpr std::u16string_view kSeparators = u" \t\u3000,，";
  constexpr long long kFarthest = 32'767;
  std::array<long long, 4> numbers{};
  for (long long& number : numbers) {
    text.remove_prefix(std::min(text.find_first_not_of(kSeparators), text.size()));
    const std::size_t end = std::min(text.find_first_of(kSeparators), text.size());
    const auto read = LiteralNumber(text.substr(0, end));
    if (!read || std::abs(*read) > kFarthest) {
      throw ExplainedError("no place", u"要写四个整数：左、上、宽、高，中间用空格或逗号隔开。");
    }
    number = *read;
    text.remove_prefix(end);
  }
  if (text.find_first_not_of(kSeparators) != text.npos || numbers[2] <= 0 || numbers[3] <= 0) {
    throw ExplainedError("no place", u"要写四个整数：左、上、宽、高，宽和高大于0。");
  }
  return {.corner = {numbers[0], numbers[1]}, .width = numbers[2], .height = numbers[3]};
}

std::vector<ListedWindow> FilterWindows(const DeskLists& lists, std::u16string_view filter, bool withHidden) {
  const WordFilter words(filter);
  const std::vector<DeskWindow>& windows = lists.windows;
  std::unordered_map<WindowHandle, std::size_t> numbers;
  std::vector<std::size_t> depths(windows.size());
  std::vector<bool> isListed(windows.size());
  // A window stands before what is in it.
  for (std::size_t index = 0; index < windows.size(); ++index) {
    const DeskWindow& window = windows[index];
    numbers.emplace(window.handle, index);
    const auto parent = numbers.find(window.parent);
    const bool isInside = window.parent != 0 && parent != numbers.end();
    depths[index] = isInside ? depths[parent->second] + 1 : 0;
    if (!(withHidden || window.isVisible) ||
        !words.Fits({window.caption, window.className, HandleText(window.handle), lists.ProcessName(window.process),
                     DecimalText(window.process)})) {
      continue;
    }
    isListed[index] = true;
    for (auto above = parent; above != numbers.end() && !isListed[above->second];
         above = numbers.find(windows[above->second].parent)) {
      isListed[above->second] = true;
    }
  }
  std::vector<ListedWindow> listed;
  for (std::size_t index = 0; index < windows.size(); ++index) {
    if (isListed[index]) {
      listed.push_back({index, depths[index]});
    }
  }
  return listed;
}

std::vector<std::size_t> FilterProcesses(const DeskLists& lists, std::u16string_view filter) {
  const WordFilter words(filter);
  std::vector<std::size_t> listed;
  for (std::size_t index = 0; index < lists.processes.size(); ++index) {
    const DeskProcess& process = lists.processes[index];
    if (words.Fits({process.name, process.path, DecimalText(process.id)})) {
      listed.push_back(index);
    }
  }
  return listed;
}

WindowHandle ControlAt(const DeskLists& lists, WindowHandle topWindow, ScreenPoint point) {
  std::unordered_map<WindowHandle, bool> isInside = {{topWindow, true}};
  const DeskWindow* smallest = nullptr;
  for (const DeskWindow& window : lists.windows) {
    const auto parent = isInside.find(window.parent);
    if (parent == isInside.end() || !parent->second || window.parent == 0) {
      continue;
    }
    const bool holds = window.isVisible && window.bounds.Holds(point);
    isInside[window.handle] = holds;
    // A frame around other controls is larger than they, and so is what a control stands in; of two of one size the
    // inner one is meant.
    if (holds && (smallest == nullptr || AreaOf(window.bounds) < AreaOf(smallest->bounds) ||
                  (AreaOf(window.bounds) == AreaOf(smallest->bounds) && window.parent == smallest->handle))) {
      smallest = &window;
    }
  }
  return smallest != nullptr ? smallest->handle : topWindow;
}

bool IsSystemProcess(const DeskProcess& process) {
  constexpr auto kNames = std::to_array<std::u16string_view>(
      {u"SYSTEM", u"REGISTRY", u"SMSS.EXE", u"CSRSS.EXE", u"WININIT.EXE", u"WINLOGON.EXE", u"SERVICES.EXE",
       u"LSASS.EXE", u"SVCHOST.EXE", u"DWM.EXE", u"EXPLORER.EXE", u"FONTDRVHOST.EXE", u"SIHOST.EXE", u"WINEDEVICE.EXE",
       u"PLUGPLAY.EXE", u"RPCSS.EXE"});
  // What the system does not show a path of is not the user's own.
  return process.path.empty() || std::ranges::find(kNames, UpperCase(process.name)) != kNames.end();
}

std::u16string DescribeWindow(const DeskLists& lists, const DeskWindow& window) {
  std::u16string text = u"标题：" + TableLine({window.caption});
  text += u"类：" + window.className + u"\r\n句柄：" + HandleText(window.handle);
  text += u"\r\n进程：" + lists.ProcessName(window.process) + u"（" + DecimalText(window.process) + u"）";
  const DeskProcess* const process = lists.ProcessOf(window.process);
  if (process != nullptr && !process->path.empty()) {
    text += u"\r\n路径：" + process->path;
  }
  text += u"\r\n位置：" + BoundsText(window.bounds);
  const std::u16string state = StateText(window);
  return state.empty() ? text : text + u"\r\n状态：" + state;
}

std::u16string WindowTable(const DeskLists& lists, const std::vector<ListedWindow>& windows) {
  std::u16string table =
      TableLine({u"层", u"标题", u"类", u"句柄", u"进程", u"进程号", u"左", u"上", u"宽", u"高", u"状态"});
  for (const ListedWindow& listed : windows) {
    const DeskWindow& window = lists.windows[listed.index];
    const WindowBounds& bounds = window.bounds;
    table += TableLine({DecimalText(listed.depth), window.caption, window.className, HandleText(window.handle),
                        lists.ProcessName(window.process), DecimalText(window.process), DecimalText(bounds.corner.x),
                        DecimalText(bounds.corner.y), DecimalText(bounds.width), DecimalText(bounds.height),
                        StateText(window)});
  }
  return table;
}

std::u16string ProcessTable(const DeskLists& lists, const std::vector<std::size_t>& processes) {
  std::u16string table = TableLine({u"名称", u"进程号", u"内存", u"窗口", u"路径", u"父进程号"});
  for (const std::size_t index : processes) {
    const DeskProcess& process = lists.processes[index];
    table += TableLine({process.name, DecimalText(process.id), MemoryText(process.memory),
                        DecimalText(lists.CountWindows(process.id)), process.path, DecimalText(process.parent)});
  }
  return table;
}

}  // namespace scrivanta
