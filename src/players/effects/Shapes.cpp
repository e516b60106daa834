// SPDX-License-Identifier: MIT
#include "players/effects/Shapes.h"

namespace tarsel::players {

namespace {

Box boxRound(double left, double top, double right, double bottom) {
    const int x = int(std::floor(left));
    const int y = int(std::floor(top));
    return {x, y, int(std::ceil(right)) - x, int(std::ceil(bottom)) - y};
}

} // namespace

Box Disc::bounds(double margin) const {
    const double reach = radius + margin;
    return boxRound(centre.x - reach, centre.y - reach, centre.x + reach, centre.y + reach);
}

double Stroke::distance(Point p) const {
    const Point way{to.x - from.x, to.y - from.y};
    const double squared = way.x * way.x + way.y * way.y;
    const double along = squared > 0 ? ((p.x - from.x) * way.x + (p.y - from.y) * way.y) / squared : 0;
    const double part = std::clamp(along, 0.0, 1.0);
    return std::hypot(p.x - from.x - way.x * part, p.y - from.y - way.y * part) - start -
           (end - start) * part;
}

Box Stroke::bounds(double margin) const {
    const double reach = std::max(start, end) + margin;
    return boxRound(std::min(from.x, to.x) - reach, std::min(from.y, to.y) - reach,
                    std::max(from.x, to.x) + reach, std::max(from.y, to.y) + reach);
}

double RoundedBox::distance(Point p) const {
    const double across = std::abs(p.x - box.left - box.width / 2.0) - box.width / 2.0 + corner;
    const double down = std::abs(p.y - box.top - box.height / 2.0) - box.height / 2.0 + corner;
    return std::hypot(std::max(across, 0.0), std::max(down, 0.0)) + std::min(std::max(across, down), 0.0) -
           corner;
}

Box RoundedBox::bounds(double margin) const {
    return boxRound(box.left - margin, box.top - margin, box.left + box.width + margin,
                    box.top + box.height + margin);
}

Box overlap(const Box& a, const Box& b) {
    const int left = std::max(a.left, b.left);
    const int top = std::max(a.top, b.top);
    return {left, top, std::max(0, std::min(a.left + a.width, b.left + b.width) - left),
            std::max(0, std::min(a.top + a.height, b.top + b.height) - top)};
}

} // namespace tarsel::players
