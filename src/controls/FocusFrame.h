// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace tarsel {

constexpr int focusFrameWidth = 2;

/// Draws the frame of a control that has the focus, along the inner edges of `place`.
void drawFocusFrame(QPainter& painter, const QPalette& palette, const QRect& place);

/// A margin around a control, in which a frame appears while the control has the focus.
class FocusFrame final : public QWidget {
    Q_OBJECT
public:
    FocusFrame(QWidget& contents, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const QWidget& m_contents;
};

} // namespace tarsel
