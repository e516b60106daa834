// SPDX-License-Identifier: MIT
#pragma once

#include "players/effects/Effect.h"

#include <string>

namespace tarsel::players {

/// In degrees from the twelve, clockwise. All three move smoothly.
struct HandAngles {
    double hour = 0;
    double minute = 0;
    double second = 0;
};

HandAngles handAngles(const ClockTime& time);

std::u32string timeText(const ClockTime& time); ///< "09:05:00"
std::u32string dateText(const ClockTime& time); ///< "Sun , 22 Nov"

} // namespace tarsel::players
