// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace tarsel::samples {

/// Linear light; 1 is a white surface in full light, lamps and the sun are far above.
struct Rgb {
    float r = 0;
    float g = 0;
    float b = 0;
};

inline Rgb operator+(Rgb a, Rgb b) {
    return {a.r + b.r, a.g + b.g, a.b + b.b};
}
inline Rgb operator*(Rgb a, Rgb b) {
    return {a.r * b.r, a.g * b.g, a.b * b.b};
}
inline Rgb operator*(Rgb a, float factor) {
    return {a.r * factor, a.g * factor, a.b * factor};
}
inline Rgb& operator+=(Rgb& a, Rgb b) {
    return a = a + b;
}

inline float mix(float a, float b, float share) {
    return a + (b - a) * share;
}
inline Rgb mix(Rgb a, Rgb b, float share) {
    return a * (1 - share) + b * share;
}
inline float clamped(float value) {
    return std::clamp(value, 0.0F, 1.0F);
}
/// 0 below `from`, 1 above `to`, smooth between; `from` may be the greater.
inline float ramp(float from, float to, float value) {
    const float t = clamped((value - from) / (to - from));
    return t * t * (3 - 2 * t);
}
inline float luminance(Rgb light) {
    return 0.2126F * light.r + 0.7152F * light.g + 0.0722F * light.b;
}

struct Vector {
    float x = 0;
    float y = 0; ///< up
    float z = 0; ///< away from the eye
};

inline float dot(Vector a, Vector b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline Vector unit(Vector v) {
    const float length = std::sqrt(dot(v, v));
    return {v.x / length, v.y / length, v.z / length};
}

/// What falls on the film: rows of light, top row first.
class Canvas {
public:
    Canvas(int width, int height) : m_width(width), m_height(height), m_light(std::size_t(width) * height) {}
    int width() const { return m_width; }
    int height() const { return m_height; }
    Rgb& at(int x, int y) { return m_light[std::size_t(y) * m_width + x]; }
    const Rgb& at(int x, int y) const { return m_light[std::size_t(y) * m_width + x]; }
    /// The light at a place between pixels; beyond the edges that of the edge.
    Rgb between(float x, float y) const;

private:
    int m_width;
    int m_height;
    std::vector<Rgb> m_light;
};

/// Sets every pixel to `light(x, y)`.
template <class Function>
void expose(Canvas& canvas, Function light) {
    for (int y = 0; y < canvas.height(); ++y)
        for (int x = 0; x < canvas.width(); ++x)
            canvas.at(x, y) = light(float(x), float(y));
}

} // namespace tarsel::samples
