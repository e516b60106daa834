// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Color.h"
#include "pixels/Picture.h"

namespace tarsel {

/// What shows through where a format without transparency is written.
inline constexpr Rgb white{255, 255, 255};

/// One row without transparency: 3 bytes a pixel, laid on `back`. A row that has none is copied.
void flattenRow(ConstPixelView view, int y, Rgb back, std::uint8_t* rgb);

} // namespace tarsel
