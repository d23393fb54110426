#pragma once

#include "shell/workbench/ScrivantaSubsystem.h"

namespace scrivanta {

std::unique_ptr<Subsystem> OpenCrypto(const SubsystemHost& host);

}  // namespace scrivanta
