#include "window/driver/Clipboard.h"

#include <windows.h>

#include "text/win/WideText.h"
#include "window/driver/Wait.h"

namespace scrivanta {

namespace {

// Open while one lives; others may hold it for a moment.
class OpenedClipboard {
 public:
  OpenedClipboard() {
    WaitUntil("the clipboard", [] { return OpenClipboard(nullptr) != FALSE; });
  }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;
  ~OpenedClipboard() { CloseClipboard(); }
};

}  // namespace

std::u16string TextOnClipboard() {
  const OpenedClipboard clipboard;
  const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
  if (memory == nullptr) {
    return {};
  }
  const std::u16string text = FromWide(static_cast<const wchar_t*>(GlobalLock(memory)));
  GlobalUnlock(memory);
  return text;
}

}  // namespace scrivanta
