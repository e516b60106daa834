// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/forms/PaintRendered.h"

#include <QColor>
#include <QPainter>
#include <QPalette>

namespace tarsel {

namespace {

/// Converts only what is to be seen.
void paintPixels(QPainter& painter, const ScreenRenderer::Rendered& drawn,
                 const PicturePlacement& placement) {
    const QRect place = placement.place();
    const Size inside = placement.container();
    const QRect visible = place.intersected({0, 0, inside.width, inside.height});
    if (visible.isEmpty())
        return;
    const QRect source = visible.translated(-place.topLeft());
    const QImage& full = drawn.full;
    const uchar* first = full.constScanLine(source.top()) + qsizetype(source.left()) * full.depth() / 8;
    const QImage part(first, source.width(), source.height(), full.bytesPerLine(), full.format());
    painter.drawImage(visible.topLeft(), part.convertToFormat(drawn.image.format()));
}

} // namespace

QColor aroundPicture(const QPalette& palette) {
    const int lightness = qGray(palette.color(QPalette::Window).rgb()) * 4 / 5;
    return {lightness, lightness, lightness};
}

void enterDevicePixels(QPainter& painter) {
    const QTransform toDevice = painter.deviceTransform();
    const QPoint origin = toDevice.map(QPointF(0, 0)).toPoint();
    painter.setWorldTransform(QTransform::fromTranslate(origin.x(), origin.y()) * toDevice.inverted());
}

void paintRendered(QPainter& painter, const ScreenRenderer::Rendered& drawn,
                   const PicturePlacement& placement, bool bestFit) {
    const QRect place = placement.place();
    if (!bestFit && !drawn.full.isNull()) {
        paintPixels(painter, drawn, placement);
    } else if (drawn.image.size() == place.size()) {
        painter.drawImage(place.topLeft(), drawn.image);
    } else {
        // While the window is resized the sharp picture is there before anybody sees the steps.
        const double factor = double(place.width()) / drawn.image.width();
        painter.setRenderHint(QPainter::SmoothPixmapTransform, factor < 0.5 || factor > 2);
        painter.drawImage(place, drawn.image);
    }
}

} // namespace tarsel
