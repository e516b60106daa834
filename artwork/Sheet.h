// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "artwork/Tone.h"

#include <QString>
#include <array>
#include <functional>

namespace tarsel::artwork {

/// Pixels of a border's pieces: `corner` x `top` the top left corner, `tile` x `top` the top edge, `right` x
/// `top` the top right corner, `side` x `sideTile` an edge at the sides, `bottom` the height of all pieces at
/// the bottom. `end` is the height of what stands between corners and sides.
struct BorderSizes {
    int corner, top, tile, right, side, sideTile, bottom, end = 0;
};

constexpr std::array<BorderSizes, 16> borderSizes{{
    {72, 54, 144, 72, 56, 170, 54},
    {57, 42, 40, 57, 42, 39, 42},
    {23, 21, 18, 23, 21, 12, 21},
    {42, 28, 24, 42, 30, 31, 28},
    {45, 15, 31, 45, 18, 34, 15, 27},
    {30, 45, 18, 17, 11, 18, 19},
    {21, 21, 16, 21, 21, 16, 21},
    {70, 35, 40, 70, 35, 40, 35},
    {18, 12, 9, 18, 12, 9, 12},
    {18, 12, 9, 18, 12, 9, 12},
    {18, 12, 9, 18, 12, 9, 12},
    {18, 12, 9, 18, 12, 9, 12},
    {18, 12, 9, 18, 12, 9, 12},
    {18, 12, 18, 18, 12, 18, 12},
    {18, 12, 18, 18, 12, 18, 12},
    {18, 12, 9, 18, 12, 9, 12},
}};

enum class Side { Top, Left, Bottom, Right };

/// A place on a border, in the measures of the side that it belongs to; sides meet in mitres.
struct Spot {
    Side side;
    float depth;  ///< pixels from the outer edge
    float across; ///< the same, 0 at the outer edge, 1 at the picture
    float along;  ///< pixels from the start of the first repeated piece
    float period; ///< of the repeated pieces
    float beyond; ///< pixels from the end of the last repeated piece
};

/// A border round a hole, from which the pieces are cut. There are three repeated pieces at each edge: the
/// middle one has its like on both sides.
struct Sheet {
    BorderSizes sizes;

    static constexpr int repeats = 3;
    int width() const { return sizes.corner + repeats * sizes.tile + sizes.right; }
    int height() const { return sizes.top + repeats * sizes.sideTile + sizes.bottom + 2 * sizes.end; }
    Spot spotAt(float x, float y) const;
};

/// The colour at a place of a sheet.
using Painting = std::function<Tone(const Sheet& sheet, float x, float y)>;

/// What light falls on.
struct Surface {
    Tone color;
    float height = 0;       ///< pixels above the ground
    float gloss = 0;        ///< strength of the highlight
    float sharpness = 20;   ///< the higher the smaller is the highlight
    Tone shine = {1, 1, 1}; ///< colour of the highlight
    float glow = 0;         ///< share of the colour that needs no light
};
using Relief = std::function<Surface(const Sheet& sheet, float x, float y)>;

/// The relief in light from the top left.
Painting lit(Relief relief);

/// Texture that repeats after `period`: `texture(place)` from 0 to 1, laid over itself.
float repeated(float along, float period, const std::function<float(float)>& texture);

/// Writes the pieces of a border into a folder.
void writeFrame(const QString& folder, int number, const Painting& painting);
void writeShadow(const QString& folder, int number, const Painting& painting);

} // namespace tarsel::artwork
