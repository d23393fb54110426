// The calendar in the window.
#pragma once

#include <memory>

#include "shell/workbench/ScrivantaSubsystem.h"

namespace scrivanta {

std::unique_ptr<Subsystem> OpenCalendar(const SubsystemHost& host);

}  // namespace scrivanta
