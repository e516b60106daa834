#pragma once

#include "imaging/Color.h"
#include "imaging/Picture.h"

namespace tarsel {

/// One row without transparency: 3 bytes a pixel, laid on `back`. A row that has none is copied.
void flattenRow(ConstPixelView view, int y, Rgb back, std::uint8_t* rgb);

} // namespace tarsel
