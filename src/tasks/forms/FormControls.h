// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QWidget>

namespace tarsel {

/// Fills a page from a form. Its controls are found by their names afterwards.
template <class Form>
void setUpForm(QWidget* page) {
    Form().setupUi(page);
}

/// The control of a form; there must be one.
template <class Control>
Control& controlOf(const QWidget& form, const char* name) {
    auto* found = form.findChild<Control*>(QLatin1String(name));
    if (!found)
        qFatal("The form %s has no control %s", qPrintable(form.objectName()), name);
    return *found;
}

/// Shows a part of the form while the button is checked.
inline void showWhile(const QWidget& form, const char* button, const char* part) {
    auto& choice = controlOf<QAbstractButton>(form, button);
    auto& shown = controlOf<QWidget>(form, part);
    QObject::connect(&choice, &QAbstractButton::toggled, &shown, &QWidget::setVisible);
    shown.setVisible(choice.isChecked());
}

} // namespace tarsel
