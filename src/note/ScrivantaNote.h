// The floating notes.
#pragma once

#include <memory>

#include "shell/workbench/ScrivantaSubsystem.h"

namespace scrivanta {

std::unique_ptr<Subsystem> OpenNote(const SubsystemHost& host);

}  // namespace scrivanta
