// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace tarsel::samples {

/// A well-mixed 32-bit number of a lattice point: the same for the same arguments on every machine.
std::uint32_t hashed(std::int32_t x, std::int32_t y, std::uint32_t seed);
/// The same as a number from 0 to 1.
float chance(std::int32_t x, std::int32_t y, std::uint32_t seed);

/// Smooth noise from 0 to 1 with one bump to the unit, and its slopes.
struct Bump {
    float value;
    float dx;
    float dy;
};
Bump bump(float x, float y, std::uint32_t seed);

/// Sum of `octaves` of noise, each of half the size and half the strength of the one before; 0 to 1.
float fractal(float x, float y, int octaves, std::uint32_t seed);
/// The same with sharp crests.
float ridged(float x, float y, int octaves, std::uint32_t seed);
/// The same, finer octaves weakened where the slope is steep already, as if water had run down; about 0 to 1.
float eroded(float x, float y, int octaves, std::uint32_t seed);

/// A run of random numbers from 0 to 1.
class Dice {
public:
    explicit Dice(std::uint32_t seed) : m_seed(seed) {}
    float next() { return chance(m_count++, 0, m_seed); }
    float between(float low, float high) { return low + (high - low) * next(); }

private:
    std::uint32_t m_seed;
    std::int32_t m_count = 0;
};

} // namespace tarsel::samples
