// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/IndexedPicture.h"
#include "pixels/Picture.h"

#include <optional>
#include <variant>

namespace tarsel {

/// The colours in which a picture is written, by the numbers that rows and settings carry.
enum class ColorFormat {
    TrueColor = 0,
    Colors256 = 1,
    Gray256 = 2,
    Colors16 = 3,
    Gray16 = 4,
    Monochrome = 5,   ///< black and white by error diffusion: the look of gray from a distance
    BlackAndWhite = 6 ///< black below half of white, else white: for text and drawings
};

/// What becomes of the transparency of a picture.
struct Transparency {
    bool isKept = false; ///< false: the picture is laid on white
    std::optional<Rgb> color =
        {}; ///< what has exactly this colour, also by the reduction, becomes transparent

    bool operator==(const Transparency&) const = default;
};

/// What an encoder writes: pixels for true colour, else indexes.
using EncodablePicture = std::variant<Picture, IndexedPicture>;

/// The one step between a picture and all encoders. Colours that fit the palette are kept exactly, others are
/// chosen by buildPalette and diffused; 256 grays are the luma. An index is transparent where alpha is below
/// one half, what else is half transparent is laid on white. Gray with a transparent index has a palette.
EncodablePicture reduceColors(const Picture& picture, ColorFormat format, const Transparency& transparency);

/// reduceColors for a format other than TrueColor.
IndexedPicture reduceToPalette(const Picture& picture, ColorFormat format, const Transparency& transparency);

/// The pixels that the indexes stand for; with 4 channels when one of them is transparent.
Picture withPaletteColors(const IndexedPicture& indexed);

} // namespace tarsel
