#include "win/Canvas.h"

#include <algorithm>

namespace scrivanta {

bool Canvas::Fit(SIZE size) {
  if (size.cx <= size_.cx && size.cy <= size_.cy) {
    return true;
  }
  const SIZE larger{std::max(size.cx, size_.cx), std::max(size.cy, size_.cy)};
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = larger.cx;
  info.bmiHeader.biHeight = -larger.cy;  // the first row is the upper one
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  void* pixels = nullptr;
  OwnedBitmap bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
  if (!context_) {
    context_ = OwnedDeviceContext(CreateCompatibleDC(nullptr));
  }
  if (!bitmap || !context_) {
    return false;
  }
  SelectObject(context_.get(), bitmap.get());
  bitmap_ = std::move(bitmap);
  pixels_ = static_cast<std::uint32_t*>(pixels);
  size_ = larger;
  return true;
}

std::span<std::uint32_t> Canvas::Row(LONG row, LONG from, LONG to) {
  const auto start =
      static_cast<std::size_t>(row) * static_cast<std::size_t>(size_.cx) + static_cast<std::size_t>(from);
  return {pixels_ + start, static_cast<std::size_t>(to - from)};
}

}  // namespace scrivanta
