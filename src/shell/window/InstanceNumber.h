// How the running instances of the program number themselves in their captions.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace scrivanta {

// The caption with a dot and a number: one more than the largest number that stands behind caption and dot in a title,
// 1 when there is none. A title that goes on with anything but digits is another program's.
std::u16string NumberedCaption(std::u16string_view caption, std::span<const std::u16string> titles);

}  // namespace scrivanta
