#include "window/driver/Screenshot.h"

#include <windows.h>

#include <ole2.h>

#include <stdexcept>

#include <gdiplus.h>
#include <gtest/gtest.h>

#include "win/Handles.h"
#include "window/driver/TestFiles.h"

namespace scrivanta {

namespace {

// The picture library is there while one lives.
class GdiPlus {
 public:
  GdiPlus() {
    const Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup(&token_, &input, nullptr) != Gdiplus::Ok) {
      throw std::runtime_error("GDI+ does not start");
    }
  }
  GdiPlus(const GdiPlus&) = delete;
  GdiPlus& operator=(const GdiPlus&) = delete;
  ~GdiPlus() { Gdiplus::GdiplusShutdown(token_); }

 private:
  ULONG_PTR token_ = 0;
};

using OwnedMemoryContext = Owner<NullableTraits<HDC, DeleteDC>>;

// {557CF406-1A04-11D3-9A73-0000F81EF32E}: the encoder for PNG.
constexpr CLSID kPngEncoder = {0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};

OwnedBitmap CopyScreen(const RECT& part) {
  const WindowDeviceContext screen(nullptr);
  const int width = part.right - part.left;
  const int height = part.bottom - part.top;
  OwnedBitmap bitmap(CreateCompatibleBitmap(screen.get(), width, height));
  const OwnedMemoryContext memory(CreateCompatibleDC(screen.get()));
  const HGDIOBJ before = SelectObject(memory.get(), bitmap.get());
  BitBlt(memory.get(), 0, 0, width, height, screen.get(), part.left, part.top, SRCCOPY);
  SelectObject(memory.get(), before);
  return bitmap;
}

}  // namespace

void TakeScreenshot(const RECT& part, const std::filesystem::path& file) {
  const GdiPlus library;
  const OwnedBitmap copy = CopyScreen(part);
  Gdiplus::Bitmap picture(copy.get(), nullptr);
  if (picture.Save(file.c_str(), &kPngEncoder, nullptr) != Gdiplus::Ok) {
    throw std::runtime_error("the picture was not written: " + file.string());
  }
}

std::vector<std::uint32_t> ScreenPixels(const RECT& part) {
  const OwnedBitmap copy = CopyScreen(part);
  BITMAPINFO format{};
  format.bmiHeader.biSize = sizeof(format.bmiHeader);
  format.bmiHeader.biWidth = part.right - part.left;
  format.bmiHeader.biHeight = part.bottom - part.top;
  format.bmiHeader.biPlanes = 1;
  format.bmiHeader.biBitCount = 32;
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(format.bmiHeader.biWidth) *
                                    static_cast<std::size_t>(format.bmiHeader.biHeight));
  const WindowDeviceContext screen(nullptr);
  GetDIBits(screen.get(), copy.get(), 0, static_cast<UINT>(format.bmiHeader.biHeight), pixels.data(), &format,
            DIB_RGB_COLORS);
  return pixels;
}

RECT WholeScreen() {
  return {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

std::string TakeFailureScreenshot() {
  try {
    const std::filesystem::path folder = TestProgramFolder() / "failures";
    std::filesystem::create_directories(folder);
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    const std::filesystem::path file =
        folder / (test == nullptr ? std::string("screen") : test->name() + std::string(".png"));
    TakeScreenshot(WholeScreen(), file);
    return file.string();
  } catch (const std::exception& error) {
    return error.what();
  }
}

}  // namespace scrivanta
