// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QPixmap>

namespace tarsel {

/// A picture as the icon of a row. Where its place on the screen has its size in device pixels it is painted
/// pixel for pixel, at every device pixel ratio; elsewhere it is scaled into the place. A selection doesn't
/// tint it.
QIcon pictureIcon(const QPixmap& picture);

} // namespace tarsel
