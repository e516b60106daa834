// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/ResizeSmooth.h"

#include "pixels/operations/AlphaPremultiplication.h"
#include "pixels/operations/AreaReduction.h"
#include "pixels/operations/LanczosKernel.h"
#include "pixels/operations/SeparableFilter.h"

#include <algorithm>

namespace tarsel::operations {

namespace {

/// What is left to the filter of a strong reduction, after exact means have done the first part of it: with
/// three times the pixels of the result, these are as good as all.
constexpr int LeastReduction = 3;

int firstFactor(int sourceLength, int targetLength) {
    return std::clamp(sourceLength / (LeastReduction * targetLength), 1, LargestAreaFactor);
}

void filter(ConstPixelView source, PixelView target) {
    const int acrossFactor = firstFactor(source.width, target.width);
    const int downFactor = firstFactor(source.height, target.height);
    const AxisWeights columns = lanczosWeights(source.width, acrossFactor, target.width);
    const AxisWeights rows = lanczosWeights(source.height, downFactor, target.height);
    if (acrossFactor == 1 && downFactor == 1)
        return separableFilter(source, target, columns, rows);
    Picture means(source.width / acrossFactor, source.height / downFactor, source.channels);
    areaReduction(source, means.edit(), acrossFactor, downFactor);
    separableFilter(means.view(), target, columns, rows);
}

/// The whole factor between two lengths, or 0 when there is none.
int wholeFactor(int sourceLength, int targetLength) {
    const int factor = sourceLength / targetLength;
    return factor * targetLength == sourceLength && factor <= LargestAreaFactor ? factor : 0;
}

void resample(ConstPixelView source, PixelView target) {
    const int acrossFactor = wholeFactor(source.width, target.width);
    const int downFactor = wholeFactor(source.height, target.height);
    if (acrossFactor && downFactor)
        areaReduction(source, target, acrossFactor, downFactor);
    else
        filter(source, target);
}

} // namespace

void resizeSmooth(ConstPixelView source, PixelView target) {
    if (source.channels == 3 || !hasTransparency(source)) {
        resample(source, target);
        return;
    }
    Picture multiplied(source.width, source.height, source.channels);
    premultiply(source, multiplied.edit());
    resample(multiplied.view(), target);
    unpremultiply(target);
}

} // namespace tarsel::operations
