// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/PicturePlacement.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tarsel {

namespace {

int stretchedLength(int length, double factor) {
    return std::max(1, int(std::min(std::nearbyint(length * factor), 2e9)));
}

int centred(int container, int drawn) {
    return container > drawn ? int(std::nearbyint((container - drawn) / 2.0)) : 0;
}

} // namespace

Size stretchedSize(Size picture, double containerWidth, double containerHeight) {
    if (picture.width < 1 || picture.height < 1 || !(containerWidth > 0) || !(containerHeight > 0))
        return picture;
    const auto by = [&](double factor) {
        return Size{stretchedLength(picture.width, factor), stretchedLength(picture.height, factor)};
    };
    const auto fits = [&](Size size) {
        return size.width <= containerWidth && size.height <= containerHeight;
    };
    // By the other side too: rounding makes it fit, so that a container of the size found keeps that size.
    const double across = containerWidth / picture.width, down = containerHeight / picture.height;
    const Size larger = by(std::max(across, down));
    return fits(larger) ? larger : by(std::min(across, down));
}

PicturePlacement::PicturePlacement(Size picture, Size container, bool stretched) :
    m_picture(picture), m_container(container),
    m_drawn(stretched ? stretchedSize(picture, container.width, container.height) : picture) {}

int PicturePlacement::maximum(int drawn, int container) {
    return std::clamp(drawn - container, 0, int(std::numeric_limits<qint16>::max()));
}

QRect PicturePlacement::place() const {
    const QPoint origin(centred(m_container.width, m_drawn.width),
                        centred(m_container.height, m_drawn.height));
    return {origin - m_scrolled, QSize(m_drawn.width, m_drawn.height)};
}

double PicturePlacement::zoom() const {
    return isEmpty() ? 100 : 100.0 * m_drawn.width / m_picture.width;
}

void PicturePlacement::scrollTo(QPoint position) {
    m_scrolled = {std::clamp(position.x(), 0, horizontalMaximum()),
                  std::clamp(position.y(), 0, verticalMaximum())};
}

void PicturePlacement::bring(QPointF picturePoint, QPointF containerPoint) {
    scrollTo(m_scrolled + (toContainer(picturePoint) - containerPoint).toPoint());
}

QPointF PicturePlacement::toPicture(QPointF containerPoint) const {
    const QPointF inside = containerPoint - place().topLeft();
    return {inside.x() * m_picture.width / std::max(m_drawn.width, 1),
            inside.y() * m_picture.height / std::max(m_drawn.height, 1)};
}

QPointF PicturePlacement::toContainer(QPointF picturePoint) const {
    return QPointF(picturePoint.x() * m_drawn.width / std::max(m_picture.width, 1),
                   picturePoint.y() * m_drawn.height / std::max(m_picture.height, 1)) +
           place().topLeft();
}

QRectF PicturePlacement::toContainer(const QRectF& pictureArea) const {
    return {toContainer(pictureArea.topLeft()), toContainer(pictureArea.bottomRight())};
}

} // namespace tarsel
