// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "embedded/EmbeddedMetadata.h"

namespace tarsel {

/// Pixels an inch for the file written: those of the EXIF block, which the user can change, else what the
/// format of the file read said, else those of the image resources; 0 when nothing says it.
Resolution resolutionOf(const EmbeddedMetadata& metadata);

inline constexpr double inchesPerMeter = 1 / 0.0254;

} // namespace tarsel
