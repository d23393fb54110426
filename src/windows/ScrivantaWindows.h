// The commands about windows and the mouse.
#pragma once

#include "shell/workbench/ScrivantaSubsystem.h"

namespace scrivanta {

std::unique_ptr<Subsystem> OpenWindows(const SubsystemHost& host);

}  // namespace scrivanta
