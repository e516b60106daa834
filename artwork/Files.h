// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "artwork/Tone.h"
#include "pixels/Picture.h"

#include <QString>

namespace tarsel::artwork {

void setPixel(PixelView pixels, int x, int y, Tone tone);

/// With colours at full resolution, so that pieces meet without a seam.
void writeJpeg(const QString& path, const Picture& picture);
/// Of a picture of grays. A block of 8 by 8 pixels of one gray comes back as it was.
void writeGrayJpeg(const QString& path, const Picture& picture);
/// Of a picture of up to 256 colours.
void writeGif(const QString& path, const Picture& picture);

} // namespace tarsel::artwork
