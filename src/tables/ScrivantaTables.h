#pragma once

#include "shell/workbench/ScrivantaSubsystem.h"

namespace scrivanta {

std::unique_ptr<Subsystem> OpenTables(const SubsystemHost& host);

}  // namespace scrivanta
