// Owners of the handles of windows and what is drawn into them.
#pragma once

#include <windows.h>

#include "text/win/Handles.h"

namespace scrivanta {

using OwnedWindow = Owner<NullableTraits<HWND, DestroyWindow>>;
using OwnedMenu = Owner<NullableTraits<HMENU, DestroyMenu>>;
using OwnedAccelerators = Owner<NullableTraits<HACCEL, DestroyAcceleratorTable>>;
using OwnedFont = Owner<NullableTraits<HGDIOBJ, DeleteObject>>;
using OwnedBitmap = Owner<NullableTraits<HBITMAP, DeleteObject>>;
using OwnedBrush = Owner<NullableTraits<HBRUSH, DeleteObject>>;
using OwnedRegion = Owner<NullableTraits<HRGN, DeleteObject>>;
using OwnedDeviceContext = Owner<NullableTraits<HDC, DeleteDC>>;
using OwnedHook = Owner<NullableTraits<HHOOK, UnhookWindowsHookEx>>;
using OwnedIcon = Owner<NullableTraits<HICON, DestroyIcon>>;
using OwnedLibrary = Owner<NullableTraits<HMODULE, FreeLibrary>>;
using OwnedRegistryKey = Owner<NullableTraits<HKEY, RegCloseKey>>;
using OwnedGlobalMemory = Owner<NullableTraits<HGLOBAL, GlobalFree>>;

// The device context of a window, given back with the window that lent it.
class WindowDeviceContext {
 public:
  explicit WindowDeviceContext(HWND window) noexcept : window_(window), context_(GetDC(window)) {}
  WindowDeviceContext(const WindowDeviceContext&) = delete;
  WindowDeviceContext& operator=(const WindowDeviceContext&) = delete;
  ~WindowDeviceContext() { ReleaseDC(window_, context_); }

  HDC get() const noexcept { return context_; }

 private:
  HWND window_;
  HDC context_;
};

}  // namespace scrivanta
