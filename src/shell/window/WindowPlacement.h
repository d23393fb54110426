// Where the main window stands, kept between runs.
#pragma once

#include <optional>
#include <span>

#include "shell/window/MainLayout.h"
#include "shell/workbench/Settings.h"

namespace scrivanta {

inline constexpr TwipRect kDefaultPlacement = {0, 0, 11865, 8760};

// A value that is absent, no number or out of all reason is the default one.
TwipRect ReadPlacement(const Settings& settings);
void SavePlacement(Settings& settings, const TwipRect& placement);

// Beside it, of a window that is maximised: the placement that it comes back to. Nothing when it is not maximised.
std::optional<TwipRect> ReadPlacementBeforeMaximising(const Settings& settings);
void SavePlacementBeforeMaximising(Settings& settings, const std::optional<TwipRect>& placement);

// The placement itself while enough of its caption to take hold of lies in one of the work areas, else moved to the
// first of them, the main screen's.
TwipRect FitPlacement(const TwipRect& placement, std::span<const TwipRect> workAreas);

}  // namespace scrivanta
