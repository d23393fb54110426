// Feeds a target with mutated inputs, the same ones in every run.
#pragma once

#include <span>
#include <string_view>

namespace scrivanta {

// Checks, with the assertions of GoogleTest, what must hold for any bytes.
using FuzzTarget = void (*)(std::string_view bytes);

// Gives the target each of the inputs as it stands, then some thousand mutations of them: bytes changed, cut out,
// repeated, inputs joined, tokens put in. Tokens are what the format is made of and chance would hardly find. Stops at
// the first input that fails and prints it.
void RunFuzz(FuzzTarget target, std::span<const std::string_view> inputs, std::span<const std::string_view> tokens);

}  // namespace scrivanta
