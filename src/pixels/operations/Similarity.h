// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"

namespace tarsel::operations {

/// How close two pictures of the same size are, both laid on white. Error 5 for different sizes, 18 after a
/// stop.
struct Similarity {
    /// Peak signal-to-noise ratio of red, green and blue together, in decibels; infinite for equal pictures.
    double peakSignalToNoise = 0;
    /// Mean structural similarity of the luma (Wang, Bovik, Sheikh, Simoncelli 2004, with their constants),
    /// over squares of 8 pixels that are 4 apart. 1 for equal pictures and for those with a side below 8.
    double structural = 1;
};
Similarity similarity(ConstPixelView a, ConstPixelView b);

} // namespace tarsel::operations
