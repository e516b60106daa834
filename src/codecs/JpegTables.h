// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/SaveSettings.h"

#include <cstdint>
#include <span>

namespace tarsel {

/// The factor of the standard tables, in thousandths, that libjpeg uses for a quality of 1 to 100: 50,000 to
/// 0.
int jpegTableScale(int quality);

/// The quality that the settings amount to; between two whole numbers for a JpegTableScale.
double jpegQualityOf(const SaveSettings& settings);

/// Multiplies a table by thousandths of `scale`; entries become 1 to 255, as baseline JPEG wants.
void scaleJpegTable(std::span<std::uint16_t, 64> table, int scale);

} // namespace tarsel
