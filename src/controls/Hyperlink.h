// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QTimer>

namespace tarsel {

/// One step of a fade: each channel moves by its distance divided by `divisor`, rounded to the nearest
/// integer with ties to even. Returns `target` when no channel would move.
QColor fadeStep(QColor current, QColor target, int divisor);

/// A text that is pressed like a link: it fades to another colour under the pointer, and back a bit faster.
/// Where the desktop asks for no animations the colour changes at once. A text that is too long for its room
/// is shortened in the middle.
class Hyperlink final : public QAbstractButton {
    Q_OBJECT
public:
    explicit Hyperlink(QWidget* parent = nullptr);
    Hyperlink(const QString& caption, QWidget* parent);

    void setCaption(const QString& caption);
    /// Until it is called, the idle colour is that of the palette's text.
    void setForeColorIdle(QColor color);
    void setForeColorMouse(QColor color) { m_mouse = color; }
    void setSpeed(int milliseconds) { m_fade.setInterval(milliseconds); } ///< between two steps of the fade
    void setAlignment(Qt::Alignment alignment);
    void setShowRectangle(bool show); ///< a frame while the pointer is over it
    void setShowCarrot(bool show);    ///< a caret before the text while the pointer is over it
    QColor color() const { return m_color; }

    /// Starts the fade as the pointer does that comes and leaves.
    void DoMouseActions(bool over);
    /// Starts the fade back. Returns at once, or with `wait` false when the fade has ended.
    void DoMouseOutFade(bool wait);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QColor idle() const;
    void step();
    int caretWidth() const;
    void paintCaret(QPainter& painter) const;

    QColor m_idle;
    QColor m_mouse{255, 128, 0};
    QColor m_color;
    QTimer m_fade;
    Qt::Alignment m_alignment = Qt::AlignLeft;
    bool m_over = false;
    bool m_showRectangle = false;
    bool m_showCarrot = false;
};

} // namespace tarsel
