// Owners of the platform's handles: one template, one line a kind.
#pragma once

#include <windows.h>

#include <utility>

namespace scrivanta {

// Traits name the handle's Type, its Invalid() value and how to Close it.
template <typename Traits>
class Owner {
 public:
  using Type = typename Traits::Type;

  Owner() = default;
  explicit Owner(Type handle) noexcept : handle_(handle) {}
  Owner(const Owner&) = delete;
  Owner& operator=(const Owner&) = delete;
  Owner(Owner&& other) noexcept : handle_(other.Release()) {}
  Owner& operator=(Owner&& other) noexcept {
    Reset(other.Release());
    return *this;
  }
  ~Owner() { Reset(); }

  explicit operator bool() const noexcept { return handle_ != Traits::Invalid(); }
  Type get() const noexcept { return handle_; }
  Type Release() noexcept { return std::exchange(handle_, Traits::Invalid()); }
  void Reset(Type handle = Traits::Invalid()) noexcept {
    const Type old = std::exchange(handle_, handle);
    if (old != Traits::Invalid()) {
      Traits::Close(old);
    }
  }

 private:
  Type handle_ = Traits::Invalid();
};

// For the many kinds whose invalid value is null and whose closing function takes nothing but the handle.
template <typename Handle, auto CloseFunction>
struct NullableTraits {
  using Type = Handle;
  static Handle Invalid() noexcept { return nullptr; }
  static void Close(Handle handle) noexcept { CloseFunction(handle); }
};

struct FileTraits {
  using Type = HANDLE;
  static HANDLE Invalid() noexcept { return INVALID_HANDLE_VALUE; }
  static void Close(HANDLE handle) noexcept { CloseHandle(handle); }
};

using OwnedFile = Owner<FileTraits>;
using OwnedKernelObject = Owner<NullableTraits<HANDLE, CloseHandle>>;

}  // namespace scrivanta
