// Base64 with the standard alphabet of RFC 4648, as one unbroken line, on bytes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "text/Bytes.h"
#include "text/Progress.h"

namespace scrivanta {

std::string EncodeBase64(std::string_view bytes);

// Up to the first NUL, which the padding decodes to as well: this decodes text. A character outside the alphabet counts
// as zero bits. One character behind the last group of four is passed over; with two or three there is no result.
std::optional<std::string> DecodeBase64(std::string_view text);

// The same in constant memory. Throw FileError, Interrupted.
void EncodeBase64Stream(ByteSource& source, ByteSink& sink, Progress& progress);
// False when there is no result; what was written until then is to be dropped.
bool DecodeBase64Stream(ByteSource& source, ByteSink& sink, Progress& progress);

}  // namespace scrivanta
