// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/operations/AxisWeights.h"

namespace tarsel::operations {

/// Lanczos weights with three lobes; a reduction widens them by its factor. The source may have been reduced
/// by an integer factor before, to sourceLength / reducedBy values, which may leave a remainder.
AxisWeights lanczosWeights(int sourceLength, int reducedBy, int targetLength);

} // namespace tarsel::operations
