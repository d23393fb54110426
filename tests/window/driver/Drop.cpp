#include "window/driver/Drop.h"

#include <shlobj.h>

#include <string>

namespace scrivanta {

HGLOBAL MakeDrop(std::initializer_list<std::filesystem::path> files) {
  std::wstring names;
  for (const std::filesystem::path& file : files) {
    names += file.wstring() + L'\0';
  }
  names += L'\0';
  const SIZE_T bytes = names.size() * sizeof(wchar_t);
  const HGLOBAL memory = GlobalAlloc(GHND, sizeof(DROPFILES) + bytes);
  auto* drop = static_cast<DROPFILES*>(GlobalLock(memory));
  drop->pFiles = sizeof(DROPFILES);
  drop->fWide = TRUE;
  CopyMemory(drop + 1, names.data(), bytes);
  GlobalUnlock(memory);
  return memory;
}

}  // namespace scrivanta
