// SPDX-License-Identifier: MIT
#pragma once

#include "players/effects/Shapes.h"

namespace tarsel::players {

/// The canvas round the box, softened; as large as the box.
Picture softened(const Canvas& canvas, const Box& box, int radius);

/// Frosted glass of this shape over the canvas: what is under it shows softly through `tint`, of which it has
/// `strength`, and it throws a shadow.
template <class Shape>
void paintFrosted(const Canvas& canvas, const Shape& shape, std::uint32_t tint, double strength, int radius) {
    const Box box = overlap(shape.bounds(2), {0, 0, canvas.width, canvas.height});
    const Picture under = softened(canvas, box, radius);
    paint(canvas, shape, black, 0.45, 2.0 * radius);
    for (int y = 0; y < box.height; ++y) {
        std::uint32_t* const row = canvas.row(box.top + y) + box.left;
        for (int x = 0; x < box.width; ++x) {
            const double inside = 0.5 - shape.distance({box.left + x + 0.5, box.top + y + 0.5});
            if (inside <= 0)
                continue;
            const std::uint32_t glass = mixed(under.row(y)[x], tint, unsigned(strength * 256));
            row[x] = mixed(row[x], glass, unsigned(std::min(inside, 1.0) * 256));
        }
    }
}

} // namespace tarsel::players
