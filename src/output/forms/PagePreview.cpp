// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/forms/PagePreview.h"

#include <QPainter>
#include <algorithm>
#include <utility>

namespace tarsel {

namespace {

constexpr int frame = 8; ///< around the paper

void drawPictures(QPainter& painter, double dotsPerMm, const PagePreview::Page& page) {
    const std::vector<QRectF> places = pagePlaces(page.layout, page.paper);
    for (std::size_t i = 0; i < std::min(places.size(), page.pictures.size()); ++i)
        if (!page.pictures[i].picture.isNull())
            drawOnPage(painter, dotsPerMm, page.layout, {places[i]}, page.pictures[i]);
}

} // namespace

PagePreview::PagePreview(QWidget* parent) : QWidget(parent) {
    setMinimumSize(120, 120);
}

void PagePreview::show(Page page) {
    m_page = std::move(page);
    update();
}

QSize PagePreview::sizeHint() const {
    const int side = 50 * fontMetrics().averageCharWidth();
    return {side, side * 4 / 3};
}

void PagePreview::paintEvent(QPaintEvent*) {
    if (m_page.paper.size.isEmpty())
        return;
    const QRectF room = QRectF(rect()).adjusted(frame, frame, -frame, -frame);
    QRectF sheet(QPointF(), m_page.paper.size.scaled(room.size(), Qt::KeepAspectRatio));
    sheet.moveCenter(room.center());
    QPainter painter(this);
    painter.setFont(QFont()); // that of the printed page
    painter.fillRect(sheet, Qt::white);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(sheet);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setClipRect(sheet);
    const double ratio = devicePixelRatioF();
    painter.translate(sheet.topLeft());
    painter.scale(1 / ratio, 1 / ratio);
    drawPictures(painter, sheet.width() * ratio / m_page.paper.size.width(), m_page);
}

} // namespace tarsel
