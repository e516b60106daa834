// SPDX-License-Identifier: MIT
#pragma once

#include "players/Payload.h"
#include "players/Show.h"
#include "players/effects/Effect.h"

namespace tarsel::players {

/// One picture with an effect. A key or a press ends it; movement belongs to the effect.
class EffectShow : public Show {
public:
    /// Throws PlayerError where the picture can't be decoded.
    EffectShow(const Payload& payload, Style style, const Box& screen, double now);

    void draw(const Canvas& canvas, double now) override;
    double nextFrame(double now) const override;
    bool take(const Event& event, double now) override;

private:
    std::unique_ptr<Effect> m_effect;
    double m_begun;
};

} // namespace tarsel::players
