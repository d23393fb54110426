// A path as a field of a text in UTF-8: what separates columns and lines is written as % and two hexadecimal digits.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace scrivanta {

std::string PathField(const std::filesystem::path& path);
std::filesystem::path PathOfField(std::string_view field);

}  // namespace scrivanta
