// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Color.h"
#include "pixels/Picture.h"

namespace tarsel::operations {

/// The picture turned clockwise about its centre, on a canvas just large enough; new area takes `background`.
/// Multiples of 90 degrees are exact, and a multiple of 360 returns the picture itself. Other angles mix the
/// four nearest pixels when `smooth`, else take the nearest one. Error 7 when the canvas would be too large,
/// 5 for an angle that is not a number.
Picture rotate(const Picture& picture, double degrees, bool smooth, Rgb background);

} // namespace tarsel::operations
