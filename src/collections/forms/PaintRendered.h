// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/forms/ScreenRenderer.h"
#include "imaging/PicturePlacement.h"

class QPainter;
class QPalette;

namespace tarsel {

/// What is around a picture: a gray, which changes no colour's look.
QColor aroundPicture(const QPalette& palette);

/// From the first device pixel of the painter's widget, which at a fractional ratio is not exactly where the
/// painter has its origin.
void enterDevicePixels(QPainter& painter);

/// Paints a picture where it is placed. The painter is in device pixels.
void paintRendered(QPainter& painter, const ScreenRenderer::Rendered& drawn,
                   const PicturePlacement& placement, bool bestFit);

} // namespace tarsel
