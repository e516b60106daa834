// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/forms/WrappedCheckBox.h"

#include <QStyleOptionButton>
#include <QStylePainter>
#include <algorithm>

namespace tarsel {

namespace {
constexpr int textFlags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap | Qt::TextShowMnemonic;
} // namespace

WrappedCheckBox::WrappedCheckBox(QWidget* parent) : QCheckBox(parent) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

QRect WrappedCheckBox::textRect(const QRect& area) const {
    QStyleOptionButton option;
    initStyleOption(&option);
    option.rect = area;
    return style()->subElementRect(QStyle::SE_CheckBoxContents, &option, this);
}

QSize WrappedCheckBox::textSize(int width) const {
    return fontMetrics().boundingRect(QRect(0, 0, width, 1 << 16), textFlags, text()).size();
}

/// As wide as its longest word.
QSize WrappedCheckBox::minimumSizeHint() const {
    const QSize single = sizeHint();
    const int beside = single.width() - textSize(1 << 16).width();
    return {beside + textSize(1).width(), single.height()};
}

int WrappedCheckBox::heightForWidth(int width) const {
    const int height = sizeHint().height();
    return std::max(height, textSize(textRect({0, 0, width, height}).width()).height());
}

void WrappedCheckBox::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const QRect area = textRect(rect());
    option.text.clear();
    painter.drawControl(QStyle::CE_CheckBox, option);
    painter.drawItemText(area, textFlags, palette(), isEnabled(), text(), QPalette::WindowText);
    if (!hasFocus())
        return;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.rect = area.adjusted(-2, 0, 0, 0);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
}

} // namespace tarsel
