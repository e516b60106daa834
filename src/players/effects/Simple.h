// SPDX-License-Identifier: MIT
#pragma once

#include "players/effects/Effect.h"

namespace tarsel::players {

/// The picture in the middle of a black screen.
class Simple : public Effect {
public:
    explicit Simple(Picture picture) : m_picture(std::move(picture)) {}

    void draw(const Canvas& canvas, double) override { drawCentred(canvas, m_picture, black); }
    bool moves() const override { return false; }

private:
    Picture m_picture;
};

} // namespace tarsel::players
