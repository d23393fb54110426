// The system commands in the window.
#pragma once

#include "shell/workbench/ScrivantaSubsystem.h"

namespace scrivanta {

std::unique_ptr<Subsystem> OpenSystem(const SubsystemHost& host);

}  // namespace scrivanta
