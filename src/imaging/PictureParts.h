// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imaging/fncLoadPicture.h"
#include "pixels/Picture.h"

namespace tarsel {

/// The picture at that size, smoothly resampled; itself where it has the size.
Picture resizedTo(const Picture& picture, Size size);

/// The pixels of that size from (left, top) on, all of them inside the picture; itself where these are all.
Picture partOf(const Picture& picture, int left, int top, Size size);

} // namespace tarsel
