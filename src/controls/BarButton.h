// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QToolButton>

namespace tarsel {

/// A flat button of a bar. Styles mark its focus faintly and draw the arrow of its menu in a fixed small
/// size: here both are drawn to be seen, also with a large font.
class BarButton final : public QToolButton {
    Q_OBJECT
public:
    using QToolButton::QToolButton;
    QSize sizeHint() const override;
    /// Opens the menu when pressed, and returns at once: a loop that lets events run goes on meanwhile.
    void setPopup(QMenu* menu);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void popUp();
    int arrowWidth() const; ///< with its margins; 0 without a menu
};

} // namespace tarsel
