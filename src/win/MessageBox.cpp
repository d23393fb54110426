#include "win/MessageBox.h"

#include <optional>
#include <utility>

#include "text/win/WideText.h"
#include "win/Colours.h"
#include "win/Handles.h"

namespace scrivanta {

namespace {

// While it lives, the next window that comes to the front is dressed: the platform tells of its box in no other way.
class DressNextWindow {
 public:
  explicit DressNextWindow(Colours& colours) {
    waiting = &colours;
    hook_.Reset(SetWindowsHookExW(WH_CBT, &Procedure, nullptr, GetCurrentThreadId()));
  }
  DressNextWindow(const DressNextWindow&) = delete;
  DressNextWindow& operator=(const DressNextWindow&) = delete;
  ~DressNextWindow() { waiting = nullptr; }

 private:
  static LRESULT CALLBACK Procedure(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_ACTIVATE && waiting != nullptr) {
      std::exchange(waiting, nullptr)->Dress(reinterpret_cast<HWND>(wParam));
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
  }

  static inline Colours* waiting = nullptr;
  OwnedHook hook_;
};

}  // namespace

int ShowMessageBox(HWND owner, const std::u16string& text, const std::u16string& title, UINT style) {
  std::optional<DressNextWindow> dressing;
  if (Colours* const colours = Colours::OfWindow(owner); colours != nullptr && colours->isDark()) {
    dressing.emplace(*colours);
  }
  return MessageBoxW(owner, ToWide(text).c_str(), ToWide(title).c_str(), style);
}

}  // namespace scrivanta
