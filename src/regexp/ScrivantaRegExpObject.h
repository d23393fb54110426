// The platform's scripting object for patterns, "vbscript.regexp".
#pragma once

#include "regexp/RegExpObject.h"

namespace scrivanta {

class ScrivantaRegExpObjectSource final : public RegExpObjectSource {
 public:
  // The thread has entered the platform's object model (ComApartment).
  std::unique_ptr<RegExpObject> Create() override;
  // Runs regsvr32 on the object's library in the system folder, and waits for its end, at most ten seconds.
  void Register() override;
};

}  // namespace scrivanta
