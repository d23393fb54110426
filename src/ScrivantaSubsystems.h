// The subsystems that this program is built of.
#pragma once

#include <memory>
#include <vector>

#include "shell/workbench/ScrivantaSubsystem.h"

namespace scrivanta {

std::vector<std::unique_ptr<Subsystem>> OpenSubsystems(const SubsystemHost& host);

}  // namespace scrivanta
