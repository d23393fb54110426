#include "win/DarkSystem.h"

namespace scrivanta {

namespace {

// A function of a library that only newer systems have; null elsewhere. The library stays.
template <typename Function>
Function* FindFunction(const wchar_t* library, const char* name) {
  const HMODULE module = LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  return module == nullptr ? nullptr
                           : reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace

void ShowTitleDark(HWND window, bool isDark) {
  using SetAttribute = HRESULT WINAPI(HWND, DWORD, const void*, DWORD);
  static SetAttribute* const setAttribute = FindFunction<SetAttribute>(L"dwmapi.dll", "DwmSetWindowAttribute");
  if (setAttribute == nullptr) {
    return;
  }
  // The first systems that could do it had another number for it.
  constexpr DWORD kDarkTitle = 20;
  constexpr DWORD kOlderDarkTitle = 19;
  const BOOL value = isDark ? TRUE : FALSE;
  if (FAILED(setAttribute(window, kDarkTitle, &value, sizeof(value)))) {
    setAttribute(window, kOlderDarkTitle, &value, sizeof(value));
  }
}

void UseDarkScrollBars(HWND control, bool isDark) {
  using SetTheme = HRESULT WINAPI(HWND, const wchar_t*, const wchar_t*);
  static SetTheme* const setTheme = FindFunction<SetTheme>(L"uxtheme.dll", "SetWindowTheme");
  if (setTheme != nullptr) {
    setTheme(control, isDark ? L"DarkMode_Explorer" : nullptr, nullptr);
  }
}

void WaitForFrame() {
  using Flush = HRESULT WINAPI();
  static Flush* const flush = FindFunction<Flush>(L"dwmapi.dll", "DwmFlush");
  if (flush != nullptr) {
    flush();
  }
}

bool IsSystemDark() {
  DWORD isLight = 1;
  DWORD size = sizeof(isLight);
  RegGetValueW(HKEY_CURRENT_USER, L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize",
               L"AppsUseLightTheme", RRF_RT_REG_DWORD, nullptr, &isLight, &size);
  return isLight == 0;
}

bool IsHighContrast() {
  HIGHCONTRASTW contrast{};
  contrast.cbSize = sizeof(contrast);
  return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof(contrast), &contrast, 0) != FALSE &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

}  // namespace scrivanta
