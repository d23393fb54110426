#include "windows/desk/ScrivantaWindowDesk.h"

#include <windows.h>

#include <array>

#include <psapi.h>
#include <tlhelp32.h>

#include "text/UpperCase.h"
#include "text/win/WideText.h"
#include "win/Handles.h"
#include "win/TopLevelWindows.h"

namespace scrivanta {

namespace {

constexpr UINT kAnswerLimit = 1000;  // milliseconds until a window counts as one that does not answer

HWND WindowOf(WindowHandle handle) {
  return reinterpret_cast<HWND>(static_cast<std::uintptr_t>(handle));
}

WindowHandle HandleOf(HWND window) {
  return static_cast<WindowHandle>(reinterpret_cast<std::uintptr_t>(window));
}

DWORD_PTR Ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  DWORD_PTR answer = 0;
  if (SendMessageTimeoutW(window, message, wParam, lParam, SMTO_ABORTIFHUNG, kAnswerLimit, &answer) == 0) {
    throw WindowDeskError(u"这个窗口没有回答，可能正忙，也可能不让别的程序动它。");
  }
  return answer;
}

// What follows waits for the window's own program.
void ExpectAnswer(HWND window) {
  Ask(window, WM_NULL, 0, 0);
}

void ThrowUnless(BOOL isDone) {
  if (isDone == FALSE) {
    throw WindowDeskError(u"系统不让这样做，那个程序可能是以管理员身份运行的。");
  }
}

std::u16string ClassOf(HWND window) {
  constexpr std::size_t kLongestClass = 257;
  std::array<wchar_t, kLongestClass> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return FromWide(name.data());
}

// What the system remembers, so that no window is asked.
std::u16string CaptionOf(HWND window) {
  constexpr std::size_t kLongestCaption = 512;
  std::array<wchar_t, kLongestCaption> caption{};
  InternalGetWindowText(window, caption.data(), static_cast<int>(caption.size()));
  return FromWide(caption.data());
}

DeskWindow Describe(HWND window) {
  const HWND parent = GetAncestor(window, GA_PARENT);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  RECT bounds{};
  GetWindowRect(window, &bounds);
  return {.handle = HandleOf(window),
          .parent = parent == GetDesktopWindow() ? 0 : HandleOf(parent),
          .caption = CaptionOf(window),
          .className = ClassOf(window),
          .process = process,
          .bounds = {.corner = {bounds.left, bounds.top},
                     .width = bounds.right - bounds.left,
                     .height = bounds.bottom - bounds.top},
          .isVisible = IsWindowVisible(window) != FALSE,
          .isEnabled = IsWindowEnabled(window) != FALSE,
          .isMinimised = IsIconic(window) != FALSE,
          .isMaximised = IsZoomed(window) != FALSE,
          .isOnTop = (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0,
          .isHung = IsHungAppWindow(window) != FALSE};
}

std::uint64_t StartOf(HANDLE process) {
  FILETIME started{};
  FILETIME ended{};
  FILETIME kernel{};
  FILETIME user{};
  if (GetProcessTimes(process, &started, &ended, &kernel, &user) == FALSE) {
    return 0;
  }
  constexpr unsigned kHalf = 32;
  return (static_cast<std::uint64_t>(started.dwHighDateTime) << kHalf) | started.dwLowDateTime;
}

void AskProcess(DeskProcess& described) {
  const OwnedKernelObject process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, described.id));
  if (!process) {
    return;
  }
  constexpr DWORD kLongestPath = 32'768;
  std::wstring path(kLongestPath, L'\0');
  DWORD length = kLongestPath;
  if (QueryFullProcessImageNameW(process.get(), 0, path.data(), &length) != FALSE) {
    path.resize(length);
    described.path = FromWide(path);
  }
  PROCESS_MEMORY_COUNTERS memory{};
  if (GetProcessMemoryInfo(process.get(), &memory, sizeof(memory)) != FALSE) {
    described.memory = memory.WorkingSetSize;
  }
  described.started = StartOf(process.get());
}

}  // namespace

std::vector<DeskWindow> ScrivantaWindowDesk::Windows() const {
  std::vector<DeskWindow> windows;
  for (const HWND top : TopLevelWindows()) {
    windows.push_back(Describe(top));
    windows.back().parent = 0;
    for (const HWND control : ControlsIn(top)) {
      windows.push_back(Describe(control));
    }
  }
  return windows;
}

std::vector<DeskProcess> ScrivantaWindowDesk::Processes() const {
  const OwnedFile snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
  PROCESSENTRY32W entry{};
  entry.dwSize = sizeof(entry);
  std::vector<DeskProcess> processes;
  for (BOOL isThere = Process32FirstW(snapshot.get(), &entry); isThere != FALSE;
       isThere = Process32NextW(snapshot.get(), &entry)) {
    processes.push_back(
        {.id = entry.th32ProcessID, .parent = entry.th32ParentProcessID, .name = FromWide(entry.szExeFile)});
    AskProcess(processes.back());
  }
  return processes;
}

std::optional<DeskWindow> ScrivantaWindowDesk::Find(WindowHandle window) const {
  return IsWindow(WindowOf(window)) != FALSE ? std::optional(Describe(WindowOf(window))) : std::nullopt;
}

WindowHandle ScrivantaWindowDesk::TopWindowAt(ScreenPoint point) const {
  const HWND window = WindowFromPoint({static_cast<LONG>(point.x), static_cast<LONG>(point.y)});
  return HandleOf(GetAncestor(window, GA_ROOT));
}

ProcessId ScrivantaWindowDesk::OwnProcess() const {
  return GetCurrentProcessId();
}

std::u16string ScrivantaWindowDesk::Text(WindowHandle window) const {
  const HWND control = WindowOf(window);
  if (UpperCase(ClassOf(control)).find(u"EDIT") != std::u16string::npos &&
      (GetWindowLongPtrW(control, GWL_STYLE) & ES_PASSWORD) != 0) {
    throw WindowDeskError(u"这是密码框，里面的文字不读。");
  }
  std::wstring text(Ask(control, WM_GETTEXTLENGTH, 0, 0) + 1, L'\0');
  text.resize(Ask(control, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data())));
  return FromWide(text);
}

void ScrivantaWindowDesk::SetText(WindowHandle window, const std::u16string& text) {
  const HWND control = WindowOf(window);
  ThrowUnless(Ask(control, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(ToWide(text).c_str())) != 0 ? TRUE : FALSE);
}

void ScrivantaWindowDesk::BringUp(WindowHandle window) {
  const HWND top = GetAncestor(WindowOf(window), GA_ROOT);
  ExpectAnswer(top);
  if (IsIconic(top) != FALSE) {
    ShowWindow(top, SW_RESTORE);
  }
  ThrowUnless(SetForegroundWindow(top));
}

void ScrivantaWindowDesk::Show(WindowHandle window, bool visible) {
  ExpectAnswer(WindowOf(window));
  ShowWindow(WindowOf(window), visible ? SW_SHOWNA : SW_HIDE);
}

void ScrivantaWindowDesk::Move(WindowHandle window, const WindowBounds& bounds) {
  const HWND moved = WindowOf(window);
  ExpectAnswer(moved);
  POINT corner{static_cast<LONG>(bounds.corner.x), static_cast<LONG>(bounds.corner.y)};
  if ((GetWindowLongPtrW(moved, GWL_STYLE) & WS_CHILD) != 0) {
    ScreenToClient(GetAncestor(moved, GA_PARENT), &corner);
  }
  ThrowUnless(SetWindowPos(moved, nullptr, corner.x, corner.y, static_cast<int>(bounds.width),
                           static_cast<int>(bounds.height), SWP_NOZORDER | SWP_NOACTIVATE));
}

void ScrivantaWindowDesk::KeepOnTop(WindowHandle window, bool onTop) {
  ExpectAnswer(WindowOf(window));
  ThrowUnless(SetWindowPos(WindowOf(window), onTop ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                           SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE));
}

// As its own close button does it.
void ScrivantaWindowDesk::Close(WindowHandle window) {
  ThrowUnless(PostMessageW(WindowOf(window), WM_CLOSE, 0, 0));
}

void ScrivantaWindowDesk::EndProcess(const DeskProcess& process) {
  const OwnedKernelObject ended(
      OpenProcess(PROCESS_TERMINATE | PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE, FALSE, process.id));
  if (!ended) {
    throw WindowDeskError(GetLastError() == ERROR_INVALID_PARAMETER ? u"这个进程已经不在了，请刷新。"
                                                                    : u"系统不让结束这个进程。");
  }
  if (StartOf(ended.get()) != process.started) {
    throw WindowDeskError(u"这个进程已经不在了，请刷新。");
  }
  ThrowUnless(TerminateProcess(ended.get(), 1));
  WaitForSingleObject(ended.get(), kAnswerLimit);
}

}  // namespace scrivanta
