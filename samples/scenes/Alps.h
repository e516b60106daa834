// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "samples/Ground.h"
#include "samples/Sky.h"

#include <cstdint>

namespace tarsel::samples {

/// Snow mountains of rock above dark woods.
class Alps final : public Ground {
public:
    Alps(const Sky& sky, std::uint32_t seed, float peak, float snowLine) :
        m_sky(sky), m_seed(seed), m_peak(peak), m_snowLine(snowLine) {}
    float height(float x, float z, float distance) const override;
    Rgb light(const GroundPoint& point) const override;

private:
    Rgb surface(const GroundPoint& point) const;

    Sky m_sky;
    std::uint32_t m_seed;
    float m_peak;     ///< metres of the highest tops
    float m_snowLine; ///< metres
};

} // namespace tarsel::samples
