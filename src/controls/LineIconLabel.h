// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QWidget>

namespace tarsel {

/// Shows an icon beside a text. It draws the icon whenever it is painted, and so follows the palette and the
/// scale of the screen.
class LineIconLabel final : public QWidget {
    Q_OBJECT
public:
    /// As high as a line of text, or that many lines.
    explicit LineIconLabel(QIcon icon, QWidget* parent = nullptr, double lines = 1);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QIcon m_icon;
    double m_lines;
};

} // namespace tarsel
