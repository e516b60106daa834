// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/FormScrollArea.h"

#include <QEvent>
#include <QScreen>
#include <QScrollBar>
#include <algorithm>

namespace tarsel {

FormScrollArea::FormScrollArea(QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Expanding);
    setFocusPolicy(Qt::NoFocus);
}

QSize FormScrollArea::sizeHint() const {
    return widget() ? framed(widget()->sizeHint()) : QScrollArea::sizeHint();
}

QSize FormScrollArea::minimumSizeHint() const {
    if (!widget())
        return QScrollArea::minimumSizeHint();
    return {framed(widget()->minimumSizeHint()).width(), fontMetrics().height() * 6};
}

QSize FormScrollArea::framed(QSize contents) const {
    return contents + QSize(verticalScrollBar()->sizeHint().width(), 0);
}

/// The base class watches its contents: a change of their layout changes what this asks for.
bool FormScrollArea::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

QSize roomOnScreen(const QWidget& window) {
    // The window manager draws a frame around it.
    const QSize frame(16, 48);
    return window.screen()->availableGeometry().size() - frame;
}

void fitToScreen(QWidget& form, QSize wanted) {
    form.resize(wanted.boundedTo(roomOnScreen(form)));
}

void fitToText(QWidget& form, int characters) {
    const int width =
        std::max(form.minimumSizeHint().width(), characters * form.fontMetrics().averageCharWidth());
    const int height = form.hasHeightForWidth() ? form.heightForWidth(width) : form.sizeHint().height();
    fitToScreen(form, {width, height});
}

} // namespace tarsel
