#include "win/Clipboard.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "text/ExplainedError.h"

namespace scrivanta {

namespace {

// Open while one lives. Others may hold it for a moment.
class OpenedClipboard {
 public:
  explicit OpenedClipboard(HWND owner) {
    constexpr int kTries = 20;
    constexpr DWORD kPause = 10;  // milliseconds
    for (int tries = 1; OpenClipboard(owner) == FALSE; ++tries) {
      if (tries == kTries) {
        throw ExplainedError("the clipboard is held by another program", u"剪贴板正被另一个程序占用，请稍后再试。");
      }
      Sleep(kPause);
    }
  }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;
  ~OpenedClipboard() { CloseClipboard(); }
};

// The bytes and an end of as many NULs as a character has; the memory is the clipboard's from now on.
void Put(UINT format, std::string_view bytes) {
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, bytes.size() + sizeof(wchar_t));
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  std::memcpy(GlobalLock(memory), bytes.data(), bytes.size());
  GlobalUnlock(memory);
  if (SetClipboardData(format, memory) == nullptr) {
    GlobalFree(memory);
  }
}

UINT RtfFormat() {
  return RegisterClipboardFormatW(L"Rich Text Format");
}

}  // namespace

void PutOnClipboard(HWND owner, std::u16string_view text, std::string_view rtf) {
  const OpenedClipboard clipboard(owner);
  EmptyClipboard();
  Put(CF_UNICODETEXT, {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)});
  if (!rtf.empty()) {
    Put(RtfFormat(), rtf);
  }
}

std::string RtfOnClipboard(HWND owner) {
  if (IsClipboardFormatAvailable(RtfFormat()) == FALSE) {
    return {};
  }
  const OpenedClipboard clipboard(owner);
  const HANDLE memory = GetClipboardData(RtfFormat());
  const void* const bytes = memory == nullptr ? nullptr : GlobalLock(memory);
  if (bytes == nullptr) {
    return {};
  }
  std::string rtf(static_cast<const char*>(bytes), GlobalSize(memory));
  GlobalUnlock(memory);
  rtf.resize(std::min(rtf.find('\0'), rtf.size()));
  return rtf;
}

}  // namespace scrivanta
