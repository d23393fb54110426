#pragma once

namespace scrivanta {

// As on a machine where the program has never run: no settings, no documents left behind, no notes.
void ForgetEarlierRuns();

}  // namespace scrivanta
