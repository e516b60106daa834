// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/forms/EffectPreview.h"

#include "publishing/forms/EffectPicture.h"

#include <QDateTime>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <algorithm>

namespace tarsel {

namespace {

constexpr int frameMilliseconds = 33;

players::ClockTime timeNow() {
    const QDateTime now = QDateTime::currentDateTime();
    const QTime time = now.time();
    return {.hour = time.hour(),
            .minute = time.minute(),
            .second = time.second() + time.msec() / 1000.0,
            .weekday = now.date().dayOfWeek() % 7,
            .day = now.date().day(),
            .month = now.date().month()};
}

} // namespace

EffectPreview::EffectPreview(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &EffectPreview::drawFrame);
    m_clock.start();
}

EffectPreview::~EffectPreview() = default;

void EffectPreview::setPicture(const Picture& picture) {
    m_picture = picture;
    startAgain();
}

void EffectPreview::setEffect(players::Style style, const joined::EffectOptions& options) {
    if (style == m_style && options == m_options)
        return;
    m_style = style;
    m_options = options;
    startAgain();
}

void EffectPreview::startAgain() {
    m_effect.reset();
    if (isVisible())
        drawFrame();
}

/// Where the desktop asks for no animations the first frame stays.
void EffectPreview::drawFrame() {
    if (m_picture.isNull() || size().isEmpty())
        return;
    if (!m_effect)
        m_effect =
            players::makeEffect(m_style, effectPicture(m_picture, width(), height()), m_options, timeNow);
    if (m_frame.size() != size())
        m_frame = QImage(size(), QImage::Format_RGB32);
    const double now = seconds();
    m_effect->draw({reinterpret_cast<std::uint32_t*>(m_frame.bits()), m_frame.width(), m_frame.height(),
                    m_frame.bytesPerLine() / qsizetype(sizeof(std::uint32_t))},
                   now);
    update();
    const bool isAnimated = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0;
    constexpr double longestWait = 60;
    const int wait = int(std::min(m_effect->stillFor(now), longestWait) * 1000);
    if (isAnimated && m_effect->moves())
        m_timer.start(std::max(wait, frameMilliseconds));
}

void EffectPreview::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (m_frame.isNull())
        painter.fillRect(rect(), Qt::black);
    else
        painter.drawImage(rect(), m_frame);
}

void EffectPreview::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    drawFrame();
}

void EffectPreview::hideEvent(QHideEvent* event) {
    m_timer.stop();
    QWidget::hideEvent(event);
}

void EffectPreview::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    startAgain();
}

void EffectPreview::mouseMoveEvent(QMouseEvent* event) {
    if (!m_effect)
        return;
    const QPoint place = event->position().toPoint();
    m_effect->pointer(place.x(), place.y(), seconds());
    if (!m_timer.isActive() || m_timer.remainingTime() > frameMilliseconds)
        m_timer.start(frameMilliseconds);
}

} // namespace tarsel
