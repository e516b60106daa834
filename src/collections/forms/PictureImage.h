// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"

#include <QImage>
#include <QPixmap>
#include <QVariant>

namespace tarsel {

/// The picture as Qt draws it. The pixels are shared, not copied: the image holds the picture.
QImage imageOf(const Picture& picture);

/// The pixmap of a picture of an ImageList; null when the value holds none.
QPixmap pixmapOf(const QVariant& picture);

} // namespace tarsel
