// Date and time as the edit box's keys type them.
#pragma once

#include <chrono>
#include <string>

namespace scrivanta {

// "2026-03-09"
std::u16string DateText(std::chrono::local_time<std::chrono::milliseconds> now);
// "08:05:09"
std::u16string TimeText(std::chrono::local_time<std::chrono::milliseconds> now);

}  // namespace scrivanta
