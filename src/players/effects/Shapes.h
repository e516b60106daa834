// SPDX-License-Identifier: MIT
#pragma once

#include "players/effects/Blend.h"
#include "players/effects/Canvas.h"

#include <algorithm>
#include <cmath>

namespace tarsel::players {

struct Point {
    double x = 0;
    double y = 0;
};

// Distances from a shape's edge in pixels, negative inside.

struct Disc {
    Point centre;
    double radius;

    double distance(Point p) const { return std::hypot(p.x - centre.x, p.y - centre.y) - radius; }
    Box bounds(double margin) const;
};

/// A stroke with round ends whose half width goes from `start` to `end`.
struct Stroke {
    Point from;
    Point to;
    double start;
    double end;

    double distance(Point p) const;
    Box bounds(double margin) const;
};

struct RoundedBox {
    Box box;
    double corner;

    double distance(Point p) const;
    Box bounds(double margin) const;
};

/// Where two boxes overlap; empty where they don't.
Box overlap(const Box& a, const Box& b);

/// Mixes the colour in where the shape is: each pixel by how much of it the shape covers, and across
/// `softness` pixels at the edge.
template <class Shape>
void paint(const Canvas& canvas, const Shape& shape, std::uint32_t color, double opacity = 1,
           double softness = 1) {
    const Box box = overlap(shape.bounds(softness + 1), {0, 0, canvas.width, canvas.height});
    for (int y = box.top; y < box.top + box.height; ++y) {
        std::uint32_t* const row = canvas.row(y);
        for (int x = box.left; x < box.left + box.width; ++x) {
            const double inside = 0.5 - shape.distance({x + 0.5, y + 0.5}) / softness;
            if (inside > 0)
                row[x] = mixed(row[x], color, unsigned(std::min(inside, 1.0) * opacity * 256 + 0.5));
        }
    }
}

} // namespace tarsel::players
