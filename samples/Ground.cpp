// SPDX-License-Identifier: GPL-3.0-or-later
#include "Ground.h"

namespace tarsel::samples {

namespace {

GroundPoint pointOf(const Ground& ground, float x, float height, float z, float distance) {
    const float span = distance * 0.0012F; // about one pixel wide
    const float east = ground.height(x + span, z, distance) - height;
    const float north = ground.height(x, z + span, distance) - height;
    return {{x, height, z}, unit({-east / span, 1, -north / span}), distance};
}

/// Paints rows from `top` (fractional) down to `bottom`, edges by their share of the pixel.
void paintSpan(Canvas& canvas, int x, float top, float bottom, Rgb light) {
    const int first = std::max(int(std::floor(top)), 0);
    const int last = std::min(int(std::ceil(bottom)), canvas.height()) - 1;
    for (int y = first; y <= last; ++y) {
        const float share = std::min(float(y + 1), bottom) - std::max(float(y), top);
        canvas.at(x, y) += light * clamped(share);
    }
}

/// Keeps the sky where the column's ground doesn't cover it.
void clearBelow(Canvas& canvas, int x, float skyline) {
    for (int y = std::max(int(std::floor(skyline)), 0); y < canvas.height(); ++y) {
        Rgb& light = canvas.at(x, y);
        light = light * clamped(skyline - float(y));
    }
}

/// One column of the picture while the march goes from near to far.
class Column {
public:
    Column(Canvas& canvas, int x, const Eye& eye, const Ground& ground) :
        m_canvas(canvas), m_x(x), m_eye(eye), m_ground(ground), m_scale(eye.focal * float(canvas.width())),
        m_across((float(x) + 0.5F - float(canvas.width()) / 2) / m_scale),
        m_horizon(eye.horizon * float(canvas.height())), m_skyline(float(canvas.height())) {}

    float march(const Depth& depth);

private:
    struct Span {
        float top;
        float bottom;
        Rgb light;
    };

    float worldX(float distance) const { return m_eye.place.x + m_across * distance; }
    float worldZ(float distance) const { return m_eye.place.z + distance; }
    void cover(float row, float height, float distance);

    Canvas& m_canvas;
    int m_x;
    const Eye& m_eye;
    const Ground& m_ground;
    float m_scale;
    float m_across;
    float m_horizon;
    float m_skyline; ///< the highest row reached so far
    std::vector<Span> m_spans;
};

/// Paints up to `row`. A steep face covers several rows: each gets the light of its own height.
void Column::cover(float row, float height, float distance) {
    GroundPoint point = pointOf(m_ground, worldX(distance), height, worldZ(distance), distance);
    const int parts = std::max(int(m_skyline - row + 0.5F), 1);
    const float bottom = m_skyline;
    for (int i = 0; i < parts; ++i) {
        const float next = mix(bottom, row, float(i + 1) / float(parts));
        point.place.y = m_eye.place.y + (m_horizon - next) * distance / m_scale;
        m_spans.push_back({next, m_skyline, m_ground.light(point)});
        m_skyline = next;
    }
}

/// Steps grow with the distance, and are made shorter where the ground rises steeply.
float Column::march(const Depth& depth) {
    float step = depth.step;
    float reached = depth.nearest;
    while (reached < depth.farthest && m_skyline > 0) {
        const float distance = reached * (1 + step);
        const float height = m_ground.height(worldX(distance), worldZ(distance), distance);
        const float row = m_horizon - (height - m_eye.place.y) / distance * m_scale;
        if (m_skyline - row > 2 && step > depth.step / 6) {
            step /= 2;
            continue;
        }
        if (row < m_skyline)
            cover(row, height, distance);
        reached = distance;
        step = std::min(step * 2, depth.step);
    }
    clearBelow(m_canvas, m_x, m_skyline);
    for (const Span& span : m_spans)
        paintSpan(m_canvas, m_x, span.top, span.bottom, span.light);
    return m_skyline;
}

} // namespace

float Ground::sunlight(const GroundPoint& point, Vector sun, float reach) const {
    float lit = 1;
    float along = reach * 0.004F + point.distance * 0.003F;
    for (; along < reach && lit > 0; along *= 1.5F) {
        const float clearance =
            point.place.y + sun.y * along -
            height(point.place.x + sun.x * along, point.place.z + sun.z * along, point.distance * 8);
        lit = std::min(lit,
                       0.5F + clearance / along * 25); // the sun is a disk: shadows grow soft with distance
    }
    return clamped(lit);
}

std::vector<float> paintGround(Canvas& canvas, const Eye& eye, const Ground& ground, const Depth& depth) {
    std::vector<float> skyline(canvas.width());
    for (int x = 0; x < canvas.width(); ++x)
        skyline[x] = Column(canvas, x, eye, ground).march(depth);
    return skyline;
}

Vector viewOf(const Canvas& canvas, const Eye& eye, float x, float y) {
    const float unitLength = eye.focal * float(canvas.width());
    return unit({(x + 0.5F - float(canvas.width()) / 2) / unitLength,
                 (eye.horizon * float(canvas.height()) - y - 0.5F) / unitLength, 1});
}

} // namespace tarsel::samples
