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

} // namespace

void resizeSmooth(ConstPixelView source, PixelView target) {
    const bool mixes = source.width != target.width || source.height != target.height;
    filter(source, target, mixes && hasTransparency(source));
}

} // namespace tarsel::operations
