// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"

namespace tarsel::operations {

/// Each colour value becomes 255 minus itself; alpha stays. `target` has the size of `source` or is the same
/// view.
void negative(ConstPixelView source, PixelView target);

} // namespace tarsel::operations
