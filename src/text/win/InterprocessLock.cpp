#include "text/InterprocessLock.h"

#include <windows.h>

#include <string>

#include "text/win/Handles.h"
#include "text/win/PlatformError.h"

namespace scrivanta {

struct InterprocessLock::Handle {
  OwnedKernelObject mutex;
};

InterprocessLock::InterprocessLock(std::string_view name) : handle_(std::make_unique<Handle>()) {
  const std::wstring mutexName = L"Local\\Scrivanta-" + std::wstring(name.begin(), name.end());
  handle_->mutex.Reset(CreateMutexW(nullptr, FALSE, mutexName.c_str()));
  if (!handle_->mutex || WaitForSingleObject(handle_->mutex.get(), INFINITE) == WAIT_FAILED) {
    ThrowLastError("CreateMutex");
  }
}

InterprocessLock::~InterprocessLock() {
  ReleaseMutex(handle_->mutex.get());
}

}  // namespace scrivanta
