// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/forms/BeforeView.h"

#include "collections/forms/CompareLine.h"
#include "collections/forms/ImageBoxView.h"
#include "collections/forms/PaintRendered.h"

#include <QEvent>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

namespace tarsel {

BeforeView::BeforeView(ImageBoxView& after) :
    QWidget(after.viewport()), m_after(after), m_line(new CompareLine(after.viewport())) {
    setObjectName(QStringLiteral("BeforeView"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
    after.viewport()->installEventFilter(this);
    connect(&after, &ImageBoxView::zoomChanged, this, &BeforeView::follow);
    for (const QScrollBar* bar : {after.horizontalScrollBar(), after.verticalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, &BeforeView::follow);
    connect(&m_renderer, &ScreenRenderer::rendered, this, &BeforeView::take);
    connect(m_line, &CompareLine::draggedTo, this, [this](int x) { moveLine(positionOf(x)); });
    connect(m_line, &CompareLine::stepped, this,
            [this](int step) { moveLine(shownPosition() + step / 100.0); });
}

void BeforeView::setPicture(const PreviewPicture& before) {
    const bool isSame = !before.picture.isNull() && !m_before.picture.isNull() &&
                        before.picture.view().data == m_before.picture.view().data;
    if (isSame)
        return;
    m_before = before;
    m_drawn = {};
    ++m_number;
    m_requestedSize = {};
    if (m_before.picture.isNull())
        m_renderer.request({}); // lets go of the picture
    follow();
}

void BeforeView::showAll(bool on) {
    m_showsAll = on;
    follow();
}

void BeforeView::compare(bool on) {
    m_compares = on;
    follow();
}

bool BeforeView::isSharp() const {
    return !m_drawn.image.isNull() && m_drawn.number == m_number;
}

// --- the view below

bool BeforeView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize)
        follow();
    return QWidget::eventFilter(watched, event);
}

PicturePlacement BeforeView::placement() const {
    PicturePlacement placement(m_before.size, m_after.container(), m_after.isBestFit());
    placement.scrollTo(m_after.placement().scrolled());
    return placement;
}

/// Shows what the state asks for, where the view is now.
void BeforeView::follow() {
    setGeometry(m_after.viewport()->rect());
    const bool hasPicture = !m_before.picture.isNull();
    setVisible(hasPicture && isOn());
    m_line->setVisible(hasPicture && m_compares && !m_showsAll);
    m_line->placeAt(lineX());
    m_line->raise();
    update();
    const Size target = placement().isEmpty() ? Size{} : placement().drawn();
    const Size wanted = stretchedSize(m_before.size, m_after.container().width, m_after.container().height);
    const bool needsFull = !m_after.isBestFit();
    if (!hasPicture || !isOn() || target.width < 1 ||
        (m_requestedSize == wanted && (m_requestedFull || !needsFull)))
        return;
    m_requestedSize = wanted;
    m_requestedFull = needsFull;
    const QSize screenPixels = screen()->size() * devicePixelRatioF();
    m_renderer.request(
        {m_number, m_before, {screenPixels.width(), screenPixels.height()}, wanted, needsFull});
}

void BeforeView::take(const ScreenRenderer::Rendered& rendered) {
    if (rendered.number != m_number)
        return;
    m_drawn = rendered;
    update();
}

// --- the line

void BeforeView::moveLine(double position) {
    m_position = std::clamp(position, 0.0, 1.0);
    m_line->placeAt(lineX());
    update();
}

double BeforeView::positionOf(int x) const {
    const QRect place = m_after.placement().place();
    return (x * devicePixelRatioF() - place.left()) / std::max(place.width(), 1);
}

/// Where the place of the line is not in sight, it waits at the edge of the view.
int BeforeView::lineX() const {
    const QRect place = m_after.placement().place();
    const double x = (place.left() + m_position * place.width()) / devicePixelRatioF();
    return std::clamp(int(std::lround(x)), 0, std::max(width() - 1, 0));
}

double BeforeView::shownPosition() const {
    const int x = lineX();
    return x > 0 && x < width() - 1 ? m_position : positionOf(x);
}

void BeforeView::paintEvent(QPaintEvent*) {
    if (m_drawn.image.isNull())
        return;
    QPainter painter(this);
    if (!m_showsAll)
        painter.setClipRect(0, 0, lineX(), height());
    painter.fillRect(rect(), aroundPicture(palette()));
    enterDevicePixels(painter);
    paintRendered(painter, m_drawn, placement(), m_after.isBestFit());
    m_after.selection().paint(painter); // the view has painted it below
}

} // namespace tarsel
