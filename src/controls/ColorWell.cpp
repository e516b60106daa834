// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ColorWell.h"

#include "base/Dialogs.h"

#include <QPainter>
#include <QStyleOptionButton>
#include <utility>

namespace tarsel {

namespace {

QColor shownColor(Color color) {
    const Rgb rgb = resolveColor(color);
    return {rgb.red, rgb.green, rgb.blue};
}

} // namespace

ColorWell::ColorWell(QWidget* parent) : QPushButton(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QPushButton::clicked, this, &ColorWell::choose);
    showColor();
}

void ColorWell::setValue(const QVariant& color) {
    if (color.toInt() == m_color)
        return;
    m_color = color.toInt();
    showColor();
    Q_EMIT colorChanged();
}

void ColorWell::showOther(std::optional<Color> color) {
    if (std::exchange(m_other, color) != color)
        showColor();
}

void ColorWell::showColor() {
    const QString name = shownColor(m_other.value_or(m_color)).name();
    setAccessibleDescription(name);
    setToolTip(name);
    update();
}

void ColorWell::onChange(const std::function<void()>& changed) {
    connect(this, &ColorWell::colorChanged, this, [call = changed] { call(); });
}

QSize ColorWell::sizeHint() const {
    const int height = fontMetrics().height() + 8;
    return {height * 2, height};
}

void ColorWell::paintEvent(QPaintEvent* event) {
    QPushButton::paintEvent(event);
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(0.3);
    const QRect area = rect().adjusted(5, 5, -5, -5);
    painter.fillRect(area, shownColor(m_other.value_or(m_color)));
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(area.adjusted(0, 0, -1, -1));
}

void ColorWell::choose() {
    if (const auto color = service<Dialogs>().colorDialog(colorOf(resolveColor(m_color))))
        setValue(*color);
}

} // namespace tarsel
