// A window whose messages become member calls.
#pragma once

#include <windows.h>

#include <string>

#include "win/Handles.h"
#include "win/WindowHost.h"

namespace scrivanta {

// Registers a window class for as long as it lives.
class WindowClass {
 public:
  WindowClass(HINSTANCE instance, std::wstring name, HICON icon);
  WindowClass(const WindowClass&) = delete;
  WindowClass& operator=(const WindowClass&) = delete;
  ~WindowClass();

  HINSTANCE instance() const noexcept { return instance_; }
  const std::wstring& name() const noexcept { return name_; }

 private:
  HINSTANCE instance_;
  std::wstring name_;
};

class Window {
 public:
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  virtual ~Window();

  // Null before Create and after the window is destroyed.
  HWND handle() const noexcept { return handle_; }

 protected:
  explicit Window(WindowHost& host) : host_(host) {}

  // Sizes in pixels; throws std::system_error.
  void Create(const WindowClass& windowClass, const std::wstring& title, DWORD style, const RECT& bounds);
  // The answer to a message; DefaultAnswer for those that are not handled.
  virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;
  LRESULT DefaultAnswer(UINT message, WPARAM wParam, LPARAM lParam);

  WindowHost& host() const noexcept { return host_; }

 private:
  friend class WindowClass;
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT AnswerTo(UINT message, WPARAM wParam, LPARAM lParam) noexcept;

  WindowHost& host_;
  HWND handle_ = nullptr;
};

}  // namespace scrivanta
