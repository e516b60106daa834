// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "artwork/Tone.h"

#include <QString>
#include <functional>

namespace tarsel::artwork {

constexpr int maskWidth = 800, maskHeight = 600;

/// Dark, and not see-through. A mask is resized to its picture, and the grays that come of it at its edges
/// are laid down: a bright mask gets a dark hairline there, a mask of this brightness doesn't.
constexpr float darkGray = 3.0F / 255;

/// The brightness of a mask at the middle of a pixel, 0 where the picture shows.
using MaskTone = std::function<float(float x, float y)>;

/// A tone with the shade that a bright mask gets round the picture, `distance` pixels from it. It begins so
/// dark that a resize to any size leaves neither a broken hairline nor an echo of the edge in the picture.
inline float hemmed(float tone, float distance) {
    return tone * (0.04F + 0.96F * step(0, 6, distance));
}

/// GIF, but JPEG for the mask 4.
void writeMask(const QString& folder, int number, const MaskTone& tone);

/// Distance from a rectangle with round corners in the middle of a mask, negative inside.
float fromRectangle(float x, float y, float marginX, float marginY, float radius);

} // namespace tarsel::artwork
