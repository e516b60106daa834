// SPDX-License-Identifier: GPL-3.0-or-later
#include "Noise.h"

#include <cmath>
#include <vector>

namespace tarsel::samples {

std::uint32_t hashed(std::int32_t x, std::int32_t y, std::uint32_t seed) {
    std::uint32_t h = std::uint32_t(x) * 0x8da6b343U ^ std::uint32_t(y) * 0xd8163841U ^ seed * 0xcb1ab31fU;
    h ^= h >> 15;
    h *= 0x2c1b3c6dU;
    h ^= h >> 12;
    h *= 0x297a2d39U;
    return h ^ (h >> 15);
}

float chance(std::int32_t x, std::int32_t y, std::uint32_t seed) {
    return float(hashed(x, y, seed) >> 8) * (1.0F / float(1 << 24));
}

namespace {

/// Random heights of a lattice that repeats after `side` points: far quicker than mixing numbers each time.
constexpr int side = 256;

std::vector<float> randomHeights() {
    std::vector<float> heights(std::size_t(side) * side);
    for (std::size_t i = 0; i < heights.size(); ++i)
        heights[i] = chance(std::int32_t(i), std::int32_t(i >> 8), 77);
    return heights;
}

const std::vector<float> lattice = randomHeights();

const float* latticeRow(std::int32_t y) {
    return &lattice[std::size_t(y & (side - 1)) * side];
}

/// The same as std::floor, which is a call on processors without an instruction for it.
std::int32_t floorOf(float value) {
    const auto towardsZero = std::int32_t(value);
    return towardsZero - std::int32_t(value < float(towardsZero));
}

} // namespace

Bump bump(float x, float y, std::uint32_t seed) {
    const std::int32_t left = floorOf(x);
    const std::int32_t top = floorOf(y);
    const float u = x - float(left);
    const float v = y - float(top);
    const std::int32_t row = top + std::int32_t(seed * 57);
    const std::int32_t column = (left + std::int32_t(seed * 131)) & (side - 1);
    const std::int32_t next = (column + 1) & (side - 1);
    const float* above = latticeRow(row);
    const float* below = latticeRow(row + 1);
    const float a = above[column];
    const float b = above[next] - a;
    const float c = below[column] - a;
    const float d = below[next] - a - b - c;
    // Quintic easing: its second derivative is continuous, so that light on slopes shows no grid.
    const float s = u * u * u * (u * (u * 6 - 15) + 10);
    const float t = v * v * v * (v * (v * 6 - 15) + 10);
    const float ds = 30 * u * u * (u * (u - 2) + 1);
    const float dt = 30 * v * v * (v * (v - 2) + 1);
    return {a + b * s + c * t + d * s * t, ds * (b + d * t), dt * (c + d * s)};
}

namespace {

/// Turns and doubles a place, so that the lattices of successive octaves don't line up.
void toNextOctave(float& x, float& y) {
    const float turned = 1.6F * x - 1.2F * y;
    y = 1.2F * x + 1.6F * y + 17.3F;
    x = turned + 31.7F;
}

} // namespace

float fractal(float x, float y, int octaves, std::uint32_t seed) {
    float sum = 0;
    float strength = 0.5F;
    for (int i = 0; i < octaves; ++i, strength *= 0.5F) {
        sum += strength * bump(x, y, seed).value;
        toNextOctave(x, y);
    }
    return sum / (1 - 2 * strength);
}

float ridged(float x, float y, int octaves, std::uint32_t seed) {
    float sum = 0;
    float strength = 0.5F;
    for (int i = 0; i < octaves; ++i, strength *= 0.5F) {
        const float crest = 1 - std::fabs(2 * bump(x, y, seed).value - 1);
        sum += strength * crest * crest;
        toNextOctave(x, y);
    }
    return sum / (1 - 2 * strength);
}

float eroded(float x, float y, int octaves, std::uint32_t seed) {
    float sum = 0;
    float strength = 0.5F;
    float slopeX = 0;
    float slopeY = 0;
    for (int i = 0; i < octaves; ++i, strength *= 0.5F) {
        const Bump n = bump(x, y, seed);
        slopeX += n.dx;
        slopeY += n.dy;
        sum += strength * n.value / (1 + slopeX * slopeX + slopeY * slopeY);
        toNextOctave(x, y);
    }
    return sum;
}

} // namespace tarsel::samples
