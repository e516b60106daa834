// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/JpegTables.h"

#include <algorithm>

namespace tarsel {

int jpegTableScale(int quality) {
    const int clamped = std::clamp(quality, 1, 100);
    return 10 * (clamped < 50 ? 5000 / clamped : 200 - 2 * clamped);
}

double jpegQualityOf(const SaveSettings& settings) {
    constexpr int allOnes = 12; // up to here the tables are those of quality 100
    const int scale = settings.JpegTableScale;
    if (scale <= 0)
        return settings.JpegQuality;
    if (scale <= allOnes)
        return 100;
    return scale > 1000 ? 50'000.0 / scale : 100 - scale / 20.0;
}

void scaleJpegTable(std::span<std::uint16_t, 64> table, int scale) {
    for (std::uint16_t& entry : table)
        entry = std::uint16_t(std::clamp((entry * scale + 500) / 1000, 1, 255));
}

} // namespace tarsel
