// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/writeSample.h"

#include "base/TrappedError.h"

#include <QFont>
#include <QPainter>
#include <QPainterPath>

namespace tarsel::samples {

namespace {

QPainterPath mountains() {
    QPainterPath path(QPointF(20, 88));
    for (const QPointF corner : {QPointF(52, 40), QPointF(66, 60), QPointF(82, 34), QPointF(118, 88)})
        path.lineTo(corner);
    path.closeSubpath();
    return path;
}

} // namespace

void writeWatermark(const QString& folder) {
    QImage mark(320, 110, QImage::Format_ARGB32);
    mark.fill(Qt::transparent);
    QPainter painter(&mark);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(255, 255, 255, 210), 3));
    painter.drawRoundedRect(QRectF(8, 8, 124, 94), 10, 10);
    painter.fillPath(mountains(), QColor(255, 255, 255, 190));
    painter.drawEllipse(QPointF(105, 32), 10, 10);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(44);
    font.setBold(true);
    painter.setFont(font);
    painter.drawText(QRect(148, 0, 172, 110), Qt::AlignVCenter, QStringLiteral("Tarsel"));
    painter.end();
    const QString path = folder + QStringLiteral("/watermark.png");
    if (!mark.save(path, "PNG"))
        fail(ErrorNumber::PermissionDenied, path);
}

} // namespace tarsel::samples
