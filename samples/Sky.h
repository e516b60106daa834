// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Light.h"

namespace tarsel::samples {

/// A clear sky: its light by direction, and the haze in front of distant things.
struct Sky {
    Rgb zenith;
    Rgb horizon;
    Rgb glow; ///< added about the sun
    Vector sun{0, 1, 0};
    float glowSize = 8;     ///< greater is narrower
    float sunDisk = 0;      ///< light of the disk itself; 0 leaves it out
    float hazeReach = 1e4F; ///< metres at which haze hides 63 % of a thing

    Rgb light(Vector view) const;
    Rgb haze(Vector view) const;
    /// `thing` as seen through the air.
    Rgb through(Rgb thing, Vector view, float distance) const;
};

} // namespace tarsel::samples
