// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"

namespace tarsel {

/// The pieces of which a border is composed. The middle and side pieces are repeated.
struct BorderPieces {
    Picture pTop_left, pTop_middle, pTop_right;
    Picture pleft, pRight;
    Picture pBottom_left, pBottom_middle, pBottom_right;
};

/// The rounded ends of the side strips of frame 4.
struct StripEnds {
    Picture left_top, right_top, left_bottom, right_bottom;
};

/// The artwork of frames, masks and shadows, which is compiled in. Each is decoded when it is first asked
/// for; any thread may ask. Error 9 for a number that doesn't exist.
class frmFrameDummy {
public:
    static constexpr int frameCount = 8;
    static constexpr int borderCount = 16; ///< frames 0 to 7, shadows 8 to 15
    static constexpr int maskCount = 8;

    static void requireBorder(int number);
    static void requireMask(int number);
    static const BorderPieces& border(int number);
    static const StripEnds& stripEnds();
    static const Picture& mask(int number); ///< 800 x 600, black where the picture shows
};

} // namespace tarsel
