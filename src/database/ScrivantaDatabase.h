#pragma once

#include "shell/workbench/ScrivantaSubsystem.h"

namespace scrivanta {

std::unique_ptr<Subsystem> OpenDatabase(const SubsystemHost& host);

}  // namespace scrivanta
