// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Conversions.h"
#include "base/TrappedError.h"
#include "imaging/ImageBox.h"

namespace tarsel {

/// Picture pixels for one display pixel, across and down. Coordinates taken on a scaled display are converted
/// at the moment of use. Error 11 for a box that shows nothing.
inline double horizontalScale(const ImageBox& box) {
    if (box.DisplayWidth() == 0)
        fail(ErrorNumber::DivisionByZero);
    return double(box.Width()) / box.DisplayWidth();
}

inline double verticalScale(const ImageBox& box) {
    if (box.DisplayHeight() == 0)
        fail(ErrorNumber::DivisionByZero);
    return double(box.Height()) / box.DisplayHeight();
}

} // namespace tarsel
