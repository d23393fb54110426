#include "win/Monitors.h"

#include <algorithm>

namespace scrivanta {

namespace {

BOOL CALLBACK AddWorkArea(HMONITOR monitor, HDC, RECT*, LPARAM areas) {
  MONITORINFO info{};
  info.cbSize = sizeof(info);
  if (GetMonitorInfoW(monitor, &info) != FALSE) {
    auto& list = *reinterpret_cast<std::vector<RECT>*>(areas);
    const bool isMain = (info.dwFlags & MONITORINFOF_PRIMARY) != 0;
    list.insert(isMain ? list.begin() : list.end(), info.rcWork);
  }
  return TRUE;
}

}  // namespace

std::vector<RECT> WorkAreas() {
  std::vector<RECT> areas;
  EnumDisplayMonitors(nullptr, nullptr, &AddWorkArea, reinterpret_cast<LPARAM>(&areas));
  return areas;
}

RECT KeepOnScreen(const RECT& bounds) {
  MONITORINFO info{};
  info.cbSize = sizeof(info);
  if (GetMonitorInfoW(MonitorFromRect(&bounds, MONITOR_DEFAULTTONEAREST), &info) == FALSE) {
    return bounds;
  }
  const RECT& area = info.rcWork;
  const LONG left = std::max(area.left, std::min(bounds.left, area.right - (bounds.right - bounds.left)));
  const LONG top = std::max(area.top, std::min(bounds.top, area.bottom - (bounds.bottom - bounds.top)));
  RECT kept = bounds;
  OffsetRect(&kept, left - bounds.left, top - bounds.top);
  return kept;
}

}  // namespace scrivanta
