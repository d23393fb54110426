#include "win/Monitors.h"

#include <algorithm>
#include <utility>

#include "win/HeldFailure.h"

namespace scrivanta {

namespace {

struct Areas {
  std::vector<RECT> list;
  HeldFailure failure;
};

BOOL CALLBACK AddWorkArea(HMONITOR monitor, HDC, RECT*, LPARAM parameter) {
  auto& areas = *reinterpret_cast<Areas*>(parameter);
  MONITORINFO info{};
  info.cbSize = sizeof(info);
  if (GetMonitorInfoW(monitor, &info) == FALSE) {
    return TRUE;
  }
  const bool isMain = (info.dwFlags & MONITORINFOF_PRIMARY) != 0;
  const bool added =
      areas.failure.Hold([&] { areas.list.insert(isMain ? areas.list.begin() : areas.list.end(), info.rcWork); });
  return added ? TRUE : FALSE;
}

}  // namespace

std::vector<RECT> WorkAreas() {
  Areas areas;
  EnumDisplayMonitors(nullptr, nullptr, &AddWorkArea, reinterpret_cast<LPARAM>(&areas));
  areas.failure.Rethrow();
  return std::move(areas.list);
}

RECT WorkAreaOf(const RECT& bounds) {
  MONITORINFO info{};
  info.cbSize = sizeof(info);
  if (GetMonitorInfoW(MonitorFromRect(&bounds, MONITOR_DEFAULTTONEAREST), &info) == FALSE) {
    return bounds;
  }
  return info.rcWork;
}

RECT KeepOnScreen(const RECT& bounds) {
  const RECT area = WorkAreaOf(bounds);
  const LONG left = std::max(area.left, std::min(bounds.left, area.right - (bounds.right - bounds.left)));
  const LONG top = std::max(area.top, std::min(bounds.top, area.bottom - (bounds.bottom - bounds.top)));
  RECT kept = bounds;
  OffsetRect(&kept, left - bounds.left, top - bounds.top);
  return kept;
}

}  // namespace scrivanta
