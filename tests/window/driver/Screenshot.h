// Pictures of the screen.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>

namespace scrivanta {

// Writes what the rectangle of the screen shows, in pixels, as PNG. Throws std::runtime_error.
void TakeScreenshot(const RECT& part, const std::filesystem::path& file);
RECT WholeScreen();

// Takes the whole screen into the folder "failures" beside the test program, named after the running test, and returns
// the path; or why there is no picture.
std::string TakeFailureScreenshot();

}  // namespace scrivanta
