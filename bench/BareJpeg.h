// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"

#include <QByteArray>

namespace tarsel::bench {

// libjpeg-turbo with nothing around it, and how little a thumbnail needs: the decoder reduces as far as it
// can, and means of the rest are taken.
Picture loadBareJpeg(const QByteArray& file);
QByteArray saveBareJpeg(const Picture& picture, int quality);
void makeBareThumbnail(const QByteArray& file, int side);

} // namespace tarsel::bench
