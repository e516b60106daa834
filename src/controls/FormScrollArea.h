// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QScrollArea>

namespace tarsel {

/// The part of a form that scrolls up and down where the screen is too low for it. It asks for the full size
/// of its contents, is never narrower than they are, and scrolls to the control that gets the focus.
class FormScrollArea final : public QScrollArea {
    Q_OBJECT
public:
    explicit FormScrollArea(QWidget* parent = nullptr);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QSize framed(QSize contents) const;
};

/// What a window can be wide and high on its screen.
QSize roomOnScreen(const QWidget& window);
/// Resizes a form to the size that it asks for, as far as the screen has room.
void fitToScreen(QWidget& form, QSize wanted);
/// The same for a form with texts that wrap: at least that many average characters wide, and as high as the
/// texts are at this width.
void fitToText(QWidget& form, int characters);

} // namespace tarsel
