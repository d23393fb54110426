// The moments at which the program may be killed and nothing may be lost.
#pragma once

namespace scrivanta {

// Says that such a moment is passed, after what the name tells has been done. It does nothing; the program of the tests
// that ends itself at one of these moments is linked with a definition of its own.
void PassCrashPoint(const char* name) noexcept;

}  // namespace scrivanta
