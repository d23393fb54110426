// Pictures of the screen.
#pragma once

#include <windows.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace scrivanta {

// Writes what the rectangle of the screen shows, in pixels, as PNG. Throws std::runtime_error.
void TakeScreenshot(const RECT& part, const std::filesystem::path& file);
RECT WholeScreen();
// The colours in the rectangle, row by row.
std::vector<std::uint32_t> ScreenPixels(const RECT& part);

// Takes the whole screen into the folder "failures" beside the test program, named after the running test, and returns
// the path; or why there is no picture.
std::string TakeFailureScreenshot();

}  // namespace scrivanta
