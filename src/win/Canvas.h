// A picture in memory that controls are drawn into, and whose pixels can be changed before they are shown.
#pragma once

#include <windows.h>

#include <cstdint>
#include <span>

#include "win/Handles.h"

namespace scrivanta {

class Canvas {
 public:
  // At least of this size. False when there is no memory for it.
  bool Fit(SIZE size);
  HDC context() const noexcept { return context_.get(); }

  // The pixels of a row from one column up to another.
  std::span<std::uint32_t> Row(LONG row, LONG from, LONG to);

 private:
  OwnedBitmap bitmap_;
  OwnedDeviceContext context_;  // goes first: it holds the other
  std::uint32_t* pixels_ = nullptr;
  SIZE size_{};
};

}  // namespace scrivanta
