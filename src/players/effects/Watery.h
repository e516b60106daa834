// SPDX-License-Identifier: MIT
#pragma once

#include "players/effects/Effect.h"
#include "players/effects/Pond.h"
#include "players/effects/Random.h"

#include <array>

namespace tarsel::players {

/// The picture under water. A few points wander over it and shake it now and then; the pointer stirs it.
class Watery : public Effect {
public:
    Watery(Picture picture, std::uint32_t seed);

    void draw(const Canvas& canvas, double seconds) override;
    void pointer(int x, int y, double seconds) override;
    double stillFor(double seconds) const override;

private:
    struct Wanderer {
        double x = 0; ///< of the width and the height, 0 to 1
        double y = 0;
        double angle = 0;     ///< in degrees
        double touchesAt = 0; ///< begins to shake the water then
        double strength = 0;
    };

    void fitPond(const Box& place);
    void advance(double seconds);
    void wander(Wanderer& wanderer);

    Picture m_picture;
    Random m_random;
    std::array<Wanderer, 6> m_wanderers;
    Pond m_pond;
    Box m_place;
    int m_cell = 1;
    double m_time = 0; ///< the pond is as it is then
    bool m_isStill = true;
};

} // namespace tarsel::players
