// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "artwork/Sheet.h"

namespace tarsel::artwork {

struct WoodTones {
    Tone dark, light, pore;
};

/// Grain along the sides of a border. The higher `scale`, the finer it is.
Tone woodAt(const Spot& spot, const WoodTones& tones, float scale = 1);

} // namespace tarsel::artwork
