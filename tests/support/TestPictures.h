// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Color.h"
#include "pixels/Picture.h"

#include <functional>
#include <ostream>
#include <vector>

namespace tarsel {

void PrintTo(const Rgb& color, std::ostream* out);

namespace test {

/// Sizes that loops get wrong: single pixels, lines, primes, just beside the width of vectors and tiles.
struct PictureSize {
    int width = 1;
    int height = 1;
};
const std::vector<PictureSize>& oddSizes();

/// A picture whose pixels are made by a function of place; with 4 channels they are opaque.
Picture pictureOf(int width, int height, int channels, const std::function<Rgb(int x, int y)>& color);
Picture plainPicture(int width, int height, int channels, Rgb color);
/// Pixels without any pattern, always the same for the same seed; alpha too when there are 4 channels.
Picture noisePicture(int width, int height, int channels, unsigned seed = 1);

/// Opaque red, but left of the column `edge` transparent with green hidden in it.
Picture redBesideHiddenGreen(int side, int edge);
struct Place {
    int x, y;
    bool operator==(const Place&) const = default;
};
/// A picture whose pixels are those of `source` where `from` says, and `outside` where it has none.
Picture picked(const Picture& source, int width, int height, const std::function<Place(int x, int y)>& from,
               Rgb outside = {});

Rgb colorAt(const Picture& picture, int x, int y);
int alphaAt(const Picture& picture, int x, int y);
/// Mean of one channel over the picture.
double meanOf(const Picture& picture, int channel);
/// The largest difference between two bytes of pictures of one size; 256 when their sizes differ.
int largestDifference(const Picture& one, const Picture& other);

} // namespace test
} // namespace tarsel
