// Windows and processes told as texts, and those among them that are looked for.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "windows/desk/WindowDesk.h"

namespace scrivanta {

// What was there at one moment.
struct DeskLists {
  std::vector<DeskWindow> windows;
  std::vector<DeskProcess> processes;

  // Null when there is none.
  const DeskWindow* WindowOf(WindowHandle handle) const;
  const DeskProcess* ProcessOf(ProcessId id) const;
  std::u16string ProcessName(ProcessId id) const;     // empty when there is none
  std::size_t CountWindows(ProcessId process) const;  // its top windows that can be seen
};

std::u16string HandleText(WindowHandle handle);         // 0x000A04F2
std::u16string BoundsText(const WindowBounds& bounds);  // 左, 上, 宽×高
std::u16string StateText(const DeskWindow& window);
std::u16string MemoryText(std::uint64_t bytes);
// Four whole numbers as they are typed: left, top, width, height. Throws ExplainedError.
WindowBounds ParseBounds(std::u16string_view text);

// A window in the list that is shown, by its number among all of them.
struct ListedWindow {
  std::size_t index = 0;
  std::size_t depth = 0;  // 0 of a top window
};

// Those that have all words of the filter in their caption, class, handle, process's name or number, with the windows
// that they stand in; hidden ones, with what is in them, when they are wanted.
std::vector<ListedWindow> FilterWindows(const DeskLists& lists, std::u16string_view filter, bool withHidden);
// The numbers of those that have all words in their name, path or number.
std::vector<std::size_t> FilterProcesses(const DeskLists& lists, std::u16string_view filter);

// The control in a top window that lies at the point and holds no smaller one there, hidden ones left out; the top
// window itself when none does.
WindowHandle ControlAt(const DeskLists& lists, WindowHandle topWindow, ScreenPoint point);

// Whether the system itself needs it: to end it may end the session.
bool IsSystemProcess(const DeskProcess& process);

std::u16string DescribeWindow(const DeskLists& lists, const DeskWindow& window);  // a line a fact
std::u16string WindowTable(const DeskLists& lists, const std::vector<ListedWindow>& windows);
std::u16string ProcessTable(const DeskLists& lists, const std::vector<std::size_t>& processes);

}  // namespace scrivanta
