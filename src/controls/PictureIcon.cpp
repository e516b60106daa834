// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/PictureIcon.h"

#include <QIconEngine>
#include <QPainter>
#include <cmath>

namespace tarsel {

namespace {

class PictureEngine final : public QIconEngine {
public:
    explicit PictureEngine(QPixmap picture) : m_picture(std::move(picture)) {
        m_picture.setDevicePixelRatio(1);
    }

    QIconEngine* clone() const override { return new PictureEngine(m_picture); }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
        const QTransform toDevice = painter->deviceTransform();
        const QRectF place = toDevice.mapRect(QRectF(rect));
        // Logical sizes are integers: the place can miss the picture's size by a part of a pixel.
        const bool fits = std::abs(place.width() - m_picture.width()) < 1 &&
                          std::abs(place.height() - m_picture.height()) < 1;
        if (fits)
            paintPixelForPixel(*painter, toDevice, {std::round(place.x()), std::round(place.y())});
        else
            paintScaled(*painter, rect);
    }

private:
    void paintPixelForPixel(QPainter& painter, const QTransform& toDevice, QPointF corner) {
        QPixmap picture = m_picture;
        picture.setDevicePixelRatio(toDevice.m11());
        painter.drawPixmap(toDevice.inverted().map(corner), picture);
    }

    /// In its own proportions, in the middle of the place.
    void paintScaled(QPainter& painter, const QRect& rect) {
        QRect place({}, m_picture.size().scaled(rect.size(), Qt::KeepAspectRatio));
        place.moveCenter(rect.center());
        const bool wasSmooth = painter.testRenderHint(QPainter::SmoothPixmapTransform);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawPixmap(place, m_picture);
        painter.setRenderHint(QPainter::SmoothPixmapTransform, wasSmooth);
    }

    QPixmap m_picture;
};

} // namespace

QIcon pictureIcon(const QPixmap& picture) {
    return QIcon(new PictureEngine(picture));
}

} // namespace tarsel
