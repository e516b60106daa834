// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/forms/SaverPreview.h"

#include <QPainter>
#include <QScreen>
#include <algorithm>
#include <utility>

namespace tarsel {

QRect placeOnScreen(QSize picture, QSize screen) {
    const auto edge = [](int side, int room) { return side > room ? 0 : (room - side) / 2; };
    return {QPoint(edge(picture.width(), screen.width()), edge(picture.height(), screen.height())), picture};
}

SaverPreview::SaverPreview(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    connect(&m_timer, &QTimer::timeout, this, &SaverPreview::showNext);
}

void SaverPreview::setSamples(std::vector<SaverSample> samples) {
    m_samples = std::move(samples);
    m_shown = 0;
    update();
}

void SaverPreview::setPicture(int sample, const QPixmap& picture) {
    m_samples[std::size_t(sample)].picture = picture;
    if (sample == m_shown)
        update();
}

void SaverPreview::setBackground(QColor color) {
    m_background = color;
    update();
}

void SaverPreview::setInterval(int seconds) {
    m_timer.setInterval(std::max(seconds, 1) * 1000);
}

void SaverPreview::showNext() {
    if (!m_samples.empty())
        m_shown = (m_shown + 1) % int(m_samples.size());
    update();
}

void SaverPreview::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    m_timer.start();
}

void SaverPreview::hideEvent(QHideEvent* event) {
    m_timer.stop();
    QWidget::hideEvent(event);
}

QRect SaverPreview::screenPlace() const {
    const QSize size = screen()->size().scaled(this->size(), Qt::KeepAspectRatio);
    return {QPoint((width() - size.width()) / 2, (height() - size.height()) / 2), size};
}

void SaverPreview::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect place = screenPlace();
    painter.fillRect(place, m_background);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(place.adjusted(0, 0, -1, -1));
    if (m_samples.empty())
        return;
    const SaverSample& sample = m_samples[std::size_t(m_shown)];
    const QSize full = screen()->size();
    painter.setClipRect(place.adjusted(1, 1, -1, -1));
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(place.topLeft());
    painter.scale(double(place.width()) / full.width(), double(place.height()) / full.height());
    painter.drawPixmap(placeOnScreen(sample.size, full), sample.picture);
}

} // namespace tarsel
