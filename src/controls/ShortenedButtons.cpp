// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ShortenedButtons.h"

#include <QEvent>
#include <QLayout>
#include <QToolButton>
#include <QWidget>

namespace tarsel {

ShortenedButtons::ShortenedButtons(QLayout& bar, QWidget& pane) : QObject(&pane), m_bar(bar), m_pane(pane) {
    pane.installEventFilter(this);
}

void ShortenedButtons::add(QToolButton* button) {
    button->setMinimumWidth(2 * button->iconSize().width());
    m_buttons.push_back(button);
}

bool ShortenedButtons::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize)
        update();
    return QObject::eventFilter(watched, event);
}

bool ShortenedButtons::barFits() const {
    m_bar.invalidate(); // doesn't learn of its buttons' new sizes by itself
    return m_bar.sizeHint().width() <= m_pane.width();
}

void ShortenedButtons::update() {
    for (QToolButton* button : m_buttons)
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    for (auto button = m_buttons.rbegin(); button != m_buttons.rend() && !barFits(); ++button)
        (*button)->setToolButtonStyle(Qt::ToolButtonIconOnly);
}

} // namespace tarsel
