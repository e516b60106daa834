// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/scanner/ScannerProtocol.h"

namespace tarsel {

/// As SANE_Frame.
enum class ScanFrameFormat { Gray, Rgb, Red, Green, Blue };

/// One of these formats, with samples of 1, 8 or 16 bits, and lines that are long enough for their pixels.
bool isSupportedFrame(const ScannerFrame& frame);

/// Writes a line's pixels as red, green, blue; a frame of one colour only its own samples. Samples of 16
/// bits, in the order of this machine, lose their low byte. A bit of 1 is black in gray and light in a
/// colour; of RGB eight pixels are a byte of red, then one of green, then one of blue.
void convertScanLine(const ScannerFrame& frame, const std::uint8_t* line, std::uint8_t* pixels);

} // namespace tarsel
