// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Color.h"
#include "pixels/Picture.h"

namespace tarsel::operations {

/// Fills what is outside the ellipse that touches the view's four edges. Pixels on the edge are mixed by
/// the part of them that is inside.
void fillOutsideEllipse(PixelView target, Rgb background);

} // namespace tarsel::operations
