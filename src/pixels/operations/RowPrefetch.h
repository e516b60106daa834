// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"

namespace tarsel::operations {

/// Asks for a row of pixels that is going to be worked on soon, or does nothing when there is no such row. On
/// pictures larger than the caches, loops that do some arithmetic otherwise wait for memory two thirds of
/// their time.
inline void prefetchRow([[maybe_unused]] ConstPixelView view, [[maybe_unused]] int y) {
#if defined(__GNUC__)
    constexpr int cacheLine = 64;
    if (y < 0 || y >= view.height)
        return;
    const std::uint8_t* row = view.row(y);
    for (int at = 0; at < view.width * view.channels; at += cacheLine)
        __builtin_prefetch(row + at);
#endif
}

} // namespace tarsel::operations
