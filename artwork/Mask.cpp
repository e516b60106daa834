// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Mask.h"

#include "artwork/Files.h"

namespace tarsel::artwork {

void writeMask(const QString& folder, int number, const MaskTone& tone) {
    Picture mask(maskWidth, maskHeight, 3);
    const PixelView pixels = mask.edit();
    for (int y = 0; y < maskHeight; ++y)
        for (int x = 0; x < maskWidth; ++x)
            setPixel(pixels, x, y, gray(tone(float(x) + 0.5F, float(y) + 0.5F)));
    const QString path = QStringLiteral("%1/Mask-%2.").arg(folder).arg(number);
    if (number == 4)
        writeGrayJpeg(path + QStringLiteral("jpg"), mask);
    else
        writeGif(path + QStringLiteral("gif"), mask);
}

float fromRectangle(float x, float y, float marginX, float marginY, float radius) {
    const float right = std::fabs(x - maskWidth / 2.0F) - (maskWidth / 2.0F - marginX) + radius;
    const float below = std::fabs(y - maskHeight / 2.0F) - (maskHeight / 2.0F - marginY) + radius;
    const float outside = std::hypot(std::max(right, 0.0F), std::max(below, 0.0F));
    return outside + std::min(std::max(right, below), 0.0F) - radius;
}

} // namespace tarsel::artwork
