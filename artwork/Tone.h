// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cmath>

namespace tarsel::artwork {

/// A colour; 0 to 1 is what a file can hold.
struct Tone {
    float red = 0, green = 0, blue = 0;

    Tone operator+(Tone other) const { return {red + other.red, green + other.green, blue + other.blue}; }
    Tone operator*(float factor) const { return {red * factor, green * factor, blue * factor}; }
    Tone operator*(Tone other) const { return {red * other.red, green * other.green, blue * other.blue}; }
};

/// Of bytes, as they are in a file.
constexpr Tone toneOf(int red, int green, int blue) {
    return {float(red) / 255, float(green) / 255, float(blue) / 255};
}

constexpr Tone gray(float level) {
    return {level, level, level};
}

inline Tone mixed(Tone from, Tone to, float share) {
    return from * (1 - share) + to * share;
}

/// 0 below `low`, 1 above `high`, an S between.
inline float step(float low, float high, float value) {
    const float t = std::clamp((value - low) / (high - low), 0.0F, 1.0F);
    return t * t * (3 - 2 * t);
}

/// 1 between `low` and `high`, with edges of `soft` on both sides.
inline float band(float low, float high, float soft, float value) {
    return step(low - soft, low + soft, value) * (1 - step(high - soft, high + soft, value));
}

/// Height of a half circle over `low` to `high`, 1 in the middle.
inline float dome(float low, float high, float value) {
    const float t = (2 * value - low - high) / (high - low);
    return std::sqrt(std::max(0.0F, 1 - t * t));
}

} // namespace tarsel::artwork
