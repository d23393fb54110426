// The contacts of the window: phone books between cards, sheets and text.
#pragma once

#include <memory>

#include "shell/workbench/ScrivantaSubsystem.h"

namespace scrivanta {

std::unique_ptr<Subsystem> OpenContacts(const SubsystemHost& host);

}  // namespace scrivanta
