// SPDX-License-Identifier: MIT
#pragma once

#include "players/effects/Canvas.h"
#include "players/effects/Pond.h"

namespace tarsel::players {

/// Draws the picture as it looks through the water: each pixel comes from where the slope bends the view to,
/// and slopes that face the light are brighter. The canvas is as large as the part of the picture that shows.
/// Each cell of the pond is `cell` pixels wide, and it has one more column and row than cover the canvas.
void drawThroughWater(const Canvas& canvas, const Picture& picture, const Pond& pond, int cell);

} // namespace tarsel::players
