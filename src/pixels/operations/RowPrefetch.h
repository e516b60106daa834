// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"
#include "pixels/operations/Vectorised.h"

namespace tarsel::operations {

constexpr int cacheLine = 64;

/// Asks for the memory around a byte that is going to be read soon; it need not exist.
TARSEL_INLINED void prefetchByte([[maybe_unused]] const std::uint8_t* byte) {
#if defined(__GNUC__)
    __builtin_prefetch(byte);
#endif
}

TARSEL_INLINED void prefetchBytes(const std::uint8_t* bytes, int count) {
    for (int at = 0; at < count; at += cacheLine)
        prefetchByte(bytes + at);
}

/// Asks for a row of pixels that is going to be worked on soon, or does nothing when there is no such row. On
/// pictures larger than the caches, loops that do some arithmetic otherwise wait for memory two thirds of
/// their time.
inline void prefetchRow(ConstPixelView view, int y) {
    if (y >= 0 && y < view.height)
        prefetchBytes(view.row(y), view.width * view.channels);
}

} // namespace tarsel::operations
