// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Color.h"
#include "pixels/Picture.h"

namespace tarsel::operations {

/// Fills what lies outside the ellipse that touches the view's four edges. Pixels on the edge are mixed by
/// the part of them that lies inside.
void fillOutsideEllipse(PixelView target, Rgb background);

} // namespace tarsel::operations
