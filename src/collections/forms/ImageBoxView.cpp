// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/forms/ImageBoxView.h"

#include "collections/forms/PictureImage.h"

#include <QPainter>

namespace tarsel {

ImageBoxView::ImageBoxView(ImageBox& box, QWidget* parent) : QWidget(parent), m_box(box) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAccessibleName(tr("Preview of the selected picture"));
}

void ImageBoxView::boxChanged(const Picture& display) {
    m_display = display;
    fitBox();
    m_isShowing = m_box.HasImage() && m_box.Visible;
    update();
}

void ImageBoxView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    fitBox();
}

void ImageBoxView::fitBox() {
    m_box.ControlWidth = float(width());
    m_box.ControlHeight = float(height());
    m_isStale = true;
}

void ImageBoxView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Mid));
    if (m_isShowing && m_isStale && m_box.HasImage())
        drawScaled();
    if (!m_isShowing) {
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(rect(), Qt::AlignCenter, tr("No picture"));
        return;
    }
    const QSizeF drawn = m_scaled.deviceIndependentSize();
    painter.drawPixmap(QPointF((width() - drawn.width()) / 2, (height() - drawn.height()) / 2), m_scaled);
}

/// While the next picture is being loaded the box is empty, and the last drawing stays.
void ImageBoxView::drawScaled() {
    const double ratio = devicePixelRatioF();
    const QSize drawn = QSize(m_box.DisplayWidth(), m_box.DisplayHeight()) * ratio;
    m_scaled =
        QPixmap::fromImage(imageOf(m_display).scaled(drawn, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    m_scaled.setDevicePixelRatio(ratio);
    m_isStale = false;
}

} // namespace tarsel
