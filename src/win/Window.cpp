#include "win/Window.h"

#include "text/win/PlatformError.h"
#include "win/Colours.h"

namespace scrivanta {

WindowClass::WindowClass(HINSTANCE instance, std::wstring name, HICON icon)
    : instance_(instance), name_(std::move(name)) {
  WNDCLASSEXW description{};
  description.cbSize = sizeof(description);
  description.lpfnWndProc = &Window::Procedure;
  description.hInstance = instance_;
  description.hIcon = icon;
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  description.lpszClassName = name_.c_str();
  if (RegisterClassExW(&description) == 0) {
    ThrowLastError("RegisterClassEx");
  }
}

WindowClass::~WindowClass() {
  UnregisterClassW(name_.c_str(), instance_);
}

Window::~Window() {
  if (handle_ != nullptr) {
    // The derived part is gone: what the window still says while it is destroyed is answered by the system.
    SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
    host_.colours.Forget(handle_);
    DestroyWindow(handle_);
  }
}

void Window::Create(const WindowClass& windowClass, const std::wstring& title, DWORD style, const RECT& bounds) {
  CreateWindowExW(0, windowClass.name().c_str(), title.c_str(), style, bounds.left, bounds.top,
                  bounds.right - bounds.left, bounds.bottom - bounds.top, nullptr, nullptr, windowClass.instance(),
                  this);
  if (handle_ == nullptr) {
    ThrowLastError("CreateWindowEx");
  }
}

LRESULT Window::DefaultAnswer(UINT message, WPARAM wParam, LPARAM lParam) {
  return DefWindowProcW(handle_, message, wParam, lParam);
}

LRESULT CALLBACK Window::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    auto* const self = static_cast<Window*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
    self->handle_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
  }
  auto* const self = reinterpret_cast<Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr) {
    return DefWindowProcW(window, message, wParam, lParam);
  }
  if (message == WM_CREATE) {
    self->host_.colours.Dress(window);
  }
  const LRESULT answer = self->AnswerTo(message, wParam, lParam);
  if (message == WM_NCDESTROY) {
    self->host_.colours.Forget(window);
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    self->handle_ = nullptr;
  }
  return answer;
}

LRESULT Window::AnswerTo(UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  try {
    return OnMessage(message, wParam, lParam);
  } catch (...) {
    host_.onError(handle_, std::current_exception());
    return 0;
  }
}

}  // namespace scrivanta
