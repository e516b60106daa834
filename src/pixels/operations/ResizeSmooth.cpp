// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/ResizeSmooth.h"

#include "pixels/operations/AlphaPremultiplication.h"
#include "pixels/operations/AreaReduction.h"
#include "pixels/operations/Bands.h"
#include "pixels/operations/LanczosKernel.h"
#include "pixels/operations/SeparableFilter.h"

#include <algorithm>

namespace tarsel::operations {

namespace {

/// The least reduction that a strong one leaves to the filter, after exact means have done the first part:
/// means with six times the pixels of the result are as good to the filter as all pixels.
constexpr int minReduction = 6;

int firstFactor(int sourceLength, int targetLength) {
    return std::clamp(sourceLength / (minReduction * targetLength), 1, largestAreaFactor);
}

void filter(ConstPixelView source, PixelView target, bool transparent) {
    const int acrossFactor = firstFactor(source.width, target.width);
    const int downFactor = firstFactor(source.height, target.height);
    const AxisWeights columns = lanczosWeights(source.width, acrossFactor, target.width);
    const AxisWeights rows = lanczosWeights(source.height, downFactor, target.height);
    if (acrossFactor == 1 && downFactor == 1)
        return separableFilter(source, target, columns, rows, {transparent, transparent});
    Picture means(source.width / acrossFactor, source.height / downFactor, source.channels);
    areaReduction(source, means.edit(), acrossFactor, downFactor, transparent);
    separableFilter(means.view(), target, columns, rows, {false, transparent});
}

/// The factor between two lengths if it is an integer, else 0.
int integerFactor(int sourceLength, int targetLength) {
    const int factor = sourceLength / targetLength;
    return factor * targetLength == sourceLength && factor <= largestAreaFactor ? factor : 0;
}

void takeMeans(ConstPixelView source, PixelView target, int acrossFactor, int downFactor, bool transparent) {
    areaReduction(source, target, acrossFactor, downFactor, transparent);
    if (!transparent)
        return;
    forBands(bandsOf(target.height, pixelCount(source)), [&](const Band& band) {
        for (int y = band.begin; y < band.end; ++y)
            unpremultiplyPixels(target.row(y), target.width);
    });
}

} // namespace

void resizeSmooth(ConstPixelView source, PixelView target) {
    const int acrossFactor = integerFactor(source.width, target.width);
    const int downFactor = integerFactor(source.height, target.height);
    const bool mixes = acrossFactor != 1 || downFactor != 1;
    const bool transparent = mixes && hasTransparency(source);
    if (acrossFactor && downFactor)
        takeMeans(source, target, acrossFactor, downFactor, transparent);
    else
        filter(source, target, transparent);
}

} // namespace tarsel::operations
