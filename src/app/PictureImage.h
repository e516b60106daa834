// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"

#include <QImage>

namespace tarsel {

/// The picture as Qt draws it. The pixels are shared, not copied: the image holds the picture.
QImage imageOf(const Picture& picture);

} // namespace tarsel
