// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/WheelToPanel.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>
#include <QScrollBar>

namespace tarsel {

namespace {

class WheelFilter final : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Wheel || static_cast<QWidget*>(watched)->hasFocus())
            return QObject::eventFilter(watched, event);
        event->ignore(); // so that it goes on to the parent
        return true;
    }
};

} // namespace

void letWheelScroll(QWidget& form) {
    auto* filter = new WheelFilter(&form);
    for (QWidget* control : form.findChildren<QWidget*>()) {
        const bool isSlider = qobject_cast<QAbstractSlider*>(control) && !qobject_cast<QScrollBar*>(control);
        if (!isSlider && !qobject_cast<QComboBox*>(control) && !qobject_cast<QAbstractSpinBox*>(control))
            continue;
        control->installEventFilter(filter);
        if (control->focusPolicy() == Qt::WheelFocus)
            control->setFocusPolicy(Qt::StrongFocus); // the wheel doesn't give the focus either
    }
}

} // namespace tarsel
